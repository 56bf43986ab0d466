#pragma once

#include "corvexkit/Result.h"

#include <QUrl>

/// The address of a calendar from what a person typed or pasted: "https:", "http:", or "file:" for a path.
/// "webcal:" is read as "https:", and so is an address without a scheme. Anything else is an error.
Result<QUrl> feedAddress(const QString &typed);
