#include "nlp/Grammar.h"

#include "nlp/Characters.h"
#include "nlp/languages/Languages.h"

#include <algorithm>
#include <mutex>
#include <optional>

namespace nlp {

namespace {

std::size_t languageIndex(std::wstring_view code)
{
    const auto subtag = code.substr(0, std::min(code.find_first_of(L"-_"), code.size()));
    const auto isNamed = [&](const LanguageTable *language) {
        return std::equal(subtag.begin(), subtag.end(), language->code.begin(), language->code.end(),
                          [](wchar_t given, wchar_t own) { return folded(given) == own; });
    };
    const auto found = std::find_if(languages.begin(), languages.end(), isNamed);
    return found == languages.end() ? 0 : std::size_t(found - languages.begin());
}

} // namespace

const Grammar &Grammar::forLanguage(std::wstring_view code)
{
    static std::array<std::once_flag, languages.size()> made;
    static std::array<std::optional<Grammar>, languages.size()> grammars;

    const std::size_t index = languageIndex(code);
    std::call_once(made[index], [index] {
        const std::array tables{languages[0], languages[index]};
        grammars[index].emplace(Grammar{std::span{tables}.first(index == 0 ? 1 : 2)});
    });
    return *grammars[index];
}

Grammar::Grammar(std::span<const LanguageTable *const> tables) : m_vocabulary{tables}
{
    for (const LanguageTable *language : tables)
        for (const Rule &rule : language->rules)
            m_rules.push_back(&rule);
    std::stable_sort(m_rules.begin(), m_rules.end(),
                     [](const Rule *a, const Rule *b) { return a->first() < b->first(); });
    for (const Rule *rule : m_rules) {
        ++m_firstRules[std::size_t(rule->first()) + 1];
        m_beginnings.insert(rule->first());
    }
    for (std::size_t i = 1; i < m_firstRules.size(); ++i)
        m_firstRules[i] += m_firstRules[i - 1];
}

std::span<const Rule *const> Grammar::rulesFrom(Symbol symbol) const
{
    const std::size_t begin = m_firstRules[std::size_t(symbol)];
    return std::span{m_rules}.subspan(begin, m_firstRules[std::size_t(symbol) + 1] - begin);
}

} // namespace nlp
