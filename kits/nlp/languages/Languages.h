#pragma once

#include "nlp/LanguageTable.h"

namespace nlp {

extern const LanguageTable english;
extern const LanguageTable chinese;

/// Every language there is. English comes first and is understood beside each of the others.
inline constexpr std::array<const LanguageTable *, 2> languages{&english, &chinese};

} // namespace nlp
