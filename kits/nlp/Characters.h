#pragma once

namespace nlp {

// Classes of code points, after the blocks of the Unicode Character Database. They answer for any value,
// surrogates and values beyond U+10FFFF included, and need no locale.

/// The form in which words are compared: lower case, full-width forms as their half-width ones, the
/// variants of apostrophe and dash as one.
wchar_t folded(wchar_t character);

bool isSpace(wchar_t folded);
bool isIdeograph(wchar_t folded);

/// A letter of a script that puts spaces between words.
bool isLetter(wchar_t folded);

constexpr bool isDigit(wchar_t folded) { return folded >= L'0' && folded <= L'9'; }

/// The place of a token that is no date.
inline constexpr wchar_t objectReplacement = 0xFFFC;

} // namespace nlp
