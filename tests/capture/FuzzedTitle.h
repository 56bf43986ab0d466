#pragma once

#include <QByteArray>

/// What scanning, date parsing, splicing or the whole recognition of a title breaks: pieces outside the
/// text, over each other or with another text. Empty when nothing is broken. Any bytes are a title: the
/// first says how the others become one, bit 0 for the locale zh_CN instead of en_US, bit 1 for UTF-16
/// instead of UTF-8. Changes the default locale.
QByteArray complaintAboutFuzzedTitle(QByteArrayView input);
