#pragma once

#include "nlp/Fragment.h"
#include "nlp/Symbol.h"

namespace nlp {

/// A run of tokens [begin, end) that a rule gave a meaning.
struct Phrase {
    Symbol symbol = Symbol::None;
    std::uint32_t begin = 0;
    std::uint32_t end = 0;
    Fragment fragment;
};

} // namespace nlp
