#pragma once

#include <QStringView>

/// A letter, a mark, a digit or "_": what a tag's name is made of, beside what stands inside only.
bool isTagNameCharacter(char32_t character);

/// The tag name that begins at `start`, as far as it goes: letters, marks, digits and "_" in any script,
/// "-" and zero-width joiners inside.
struct TagNameSpan {
    qsizetype end = 0;      ///< after its last letter, mark, digit or "_"
    qsizetype innerEnd = 0; ///< after the inner characters that follow, too
    bool isOnlyDigits = true;

    TagNameSpan(QStringView text, qsizetype start);
};

/// Whether a name holds what no tag's name may hold. A tag of such a name could not be typed.
bool isContainsSpecialCharactersForTag(QStringView name);
