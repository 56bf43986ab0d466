#pragma once

#include "model/text/TextRange.h"

#include <QList>
#include <QString>

/// Finds the hashtags of a text.
///
/// A hashtag is "#" or "＃" and a name of letters, marks, digits and "_" in any script, with "-" inside
/// ("#deep-work" is one tag); zero-width joiners join letters. A name has something other than digits in
/// it. A mark inside a word, a link or a mail address, or after "&", begins none, nor one before "://",
/// except that it may follow a character of a script without spaces, and a tag: "#a#b" are two. Any thread.
class TwitterText {
public:
    /// The hashtags in text order, each from its mark on.
    static QList<TextRange> cx_validHashtagsInText(QStringView text);
    /// These, and the one still being typed at the end of the text: a mark alone, digits alone, a name
    /// that so far ends with "-".
    static QList<TextRange> cx_possibleHashtagsInText(QStringView text);
    /// Whether a hashtag may stand right after `text`.
    static bool cx_isValidPrefixForHashTag(QStringView text);
};
