#pragma once

#include "model/text/TextRange.h"

#include <QList>
#include <QStringView>

// Stretches of a text that mean nothing to the recognisers. All take time in proportion to the text and
// answer disjoint ranges in text order. Any thread.

/// Quick: whether there can be a link or a mail address at all.
bool holdsLinkMark(QStringView text);

/// Links ("https://…", "www.…", "example.org/…") and mail addresses. Nothing in them is a token.
QList<TextRange> linkRanges(QStringView text);

/// Text in quotation marks, the marks included. No date is read in it. A straight mark right after a
/// letter or digit is an inch mark or closes; one that nothing closes opens nothing. A single mark before
/// a letter or after white space is an apostrophe and closes nothing.
QList<TextRange> quotationRanges(QStringView text);

/// Whether one of `ranges`, which are disjoint and in text order, holds the unit at `position`.
bool isInside(const QList<TextRange> &ranges, qsizetype position);
