#pragma once

#include <QString>

#include <array>

/// The colours that lists and tags are given: what is stored, and the key of its name.
struct ListColor {
    const char *value; ///< "#rrggbb", empty for none
    const char *name;
};

inline constexpr std::array<ListColor, 11> listColors{{
    {"", "No Color"},
    {"#e5484d", "Red"},
    {"#f2711c", "Orange"},
    {"#e79a0c", "Amber"},
    {"#2f9e64", "Green"},
    {"#0f9d9d", "Teal"},
    {"#3e8ef7", "Blue"},
    {"#5b5bd6", "Indigo"},
    {"#8e4ec6", "Purple"},
    {"#d6409f", "Pink"},
    {"#8a8f9c", "Gray"},
}};
