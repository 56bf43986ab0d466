#pragma once

#include "corvexkit/Result.h"

/// A regular file that can be read, of `maximumSize` bytes at most; else a sentence. Answers its size.
Result<qint64> checkedFile(const QString &path, qint64 maximumSize);

/// Copies the content, through to the disk: `target` is complete or as it was before. Any thread.
Result<void> copyFile(const QString &source, const QString &target);
