#pragma once

#include <QStringView>

// Questions about the characters of a text, by the Unicode Character Database. Positions are in UTF-16
// units; one inside a surrogate pair belongs to the pair's character.

/// The character that holds the unit at `position`; 0 outside the text. Of a lone surrogate, itself.
char32_t characterAt(QStringView text, qsizetype position);

/// Whether words of the character's script stand beside each other without spaces: Chinese, Japanese,
/// Thai and their like.
bool isOfUnspacedScript(char32_t character);

/// A letter, a mark on one, or a digit.
bool isWordCharacter(char32_t character);

/// Whether a word may begin or end before the unit at `position`: everywhere but between two word
/// characters, and between two such characters where one is of an unspaced script. Never before a mark.
bool isWordBoundary(QStringView text, qsizetype position);

/// The text with U+FFFD in place of every surrogate without its partner.
QString withoutBrokenSurrogates(const QString &text);
