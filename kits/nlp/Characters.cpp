#include "nlp/Characters.h"

#include <cstdint>

namespace nlp {

namespace {

constexpr bool isWithin(wchar_t character, wchar_t first, wchar_t last)
{
    return character >= first && character <= last;
}

wchar_t lowerBeyondAscii(wchar_t character)
{
    if (isWithin(character, 0xC0, 0xDE) && character != 0xD7) return character + 0x20;
    if (isWithin(character, 0x100, 0x137) || isWithin(character, 0x14A, 0x177)) return character | 1;
    if (isWithin(character, 0x139, 0x148) || isWithin(character, 0x179, 0x17E))
        return character + (character & 1);
    if (isWithin(character, 0x391, 0x3A9)) return character + 0x20;
    if (isWithin(character, 0x400, 0x40F)) return character + 0x50;
    if (isWithin(character, 0x410, 0x42F)) return character + 0x20;
    return character;
}

bool isSignBeyondAscii(wchar_t character)
{
    if (isWithin(character, 0x80, 0xBF)) return character != 0xAA && character != 0xB5 && character != 0xBA;
    if (character == 0xD7 || character == 0xF7) return true;
    return isWithin(character, 0x2000, 0x2BFF)    // punctuation, currency, arrows, symbols
           || isWithin(character, 0x3000, 0x303F) // CJK punctuation
           || isWithin(character, 0xD800, 0xF8FF) // surrogates, private use
           || isWithin(character, 0xFE00, 0xFE6F) // variation selectors, small forms
           || isWithin(character, 0xFFE0, 0xFFFF) || isWithin(character, 0x1F000, 0x1FBFF) // emoji
           || std::uint32_t(character) > 0x10FFFF;
}

} // namespace

wchar_t folded(wchar_t character)
{
    if (isWithin(character, 0xFF01, 0xFF5E)) character -= 0xFEE0;
    if (isWithin(character, L'A', L'Z')) return character + 0x20;
    if (isWithin(character, 0, 0x7F)) return character;
    switch (character) {
    case 0x2018:
    case 0x2019:
    case 0x02BC:
        return L'\'';
    case 0x2010:
    case 0x2011:
    case 0x2012:
    case 0x2013:
    case 0x2014:
    case 0x2015:
    case 0x2212:
        return L'-';
    case 0x301C:
    case 0x223C:
        return L'~';
    case 0x2236:
        return L':';
    default:
        return lowerBeyondAscii(character);
    }
}

bool isSpace(wchar_t character)
{
    return character == L' ' || isWithin(character, 0x09, 0x0D) || character == 0xA0 || character == 0x3000 ||
           isWithin(character, 0x2000, 0x200A) || character == 0x202F || character == 0x205F;
}

bool isIdeograph(wchar_t character)
{
    return isWithin(character, 0x4E00, 0x9FFF) || isWithin(character, 0x3400, 0x4DBF) ||
           isWithin(character, 0x20000, 0x3FFFF) || isWithin(character, 0xF900, 0xFAFF) ||
           character == 0x3005 || character == 0x3007;
}

bool isLetter(wchar_t character)
{
    if (isWithin(character, L'a', L'z')) return true;
    if (isWithin(character, 0, 0x7F)) return false;
    return !isSignBeyondAscii(character) && !isIdeograph(character);
}

} // namespace nlp
