#include "nlp/Vocabulary.h"

#include "nlp/Characters.h"

#include <algorithm>

namespace nlp {

Vocabulary::Vocabulary(std::span<const LanguageTable *const> languages) : m_nodes(1), m_edges(1 << 12)
{
    Senses senses;
    for (const LanguageTable *language : languages) {
        for (const Word &word : language->words) {
            std::wstring_view rest = word.spellings;
            while (!rest.empty()) {
                const auto bar = std::min(rest.find(L'|'), rest.size());
                add(rest.substr(0, bar), {word.symbol, word.value}, senses);
                rest.remove_prefix(std::min(bar + 1, rest.size()));
            }
        }
    }
    for (auto &[node, list] : senses) {
        m_nodes[node] = {std::uint32_t(m_senses.size()), std::uint32_t(list.size())};
        m_senses.insert(m_senses.end(), list.begin(), list.end());
    }
    for (wchar_t character = 0; character < wchar_t(m_first.size()); ++character) {
        const Edge &edge = m_edges[place(0, character)];
        m_first[std::size_t(character)] = edge.target;
    }
}

Vocabulary::Hit Vocabulary::longestWordAt(std::wstring_view text, std::uint32_t begin) const
{
    Hit hit;
    const auto size = std::uint32_t(text.size());
    std::uint32_t node = 0;
    for (std::uint32_t i = begin; i < size;) {
        const bool space = isSpace(text[i]);
        node = child(node, space ? L' ' : text[i]);
        if (node == noNode) break;
        do
            ++i;
        while (space && i < size && isSpace(text[i]));
        const Node &reached = m_nodes[node];
        if (reached.senseCount == 0) continue;
        const bool goesOn = !isIdeograph(text[i - 1]) && i < size && (isLetter(text[i]) || isDigit(text[i]));
        if (!goesOn) hit = {i, &m_senses[reached.firstSense], std::uint8_t(reached.senseCount)};
    }
    return hit;
}

void Vocabulary::add(std::wstring_view spelling, Sense sense, Senses &senses)
{
    std::uint32_t node = 0;
    for (const wchar_t character : spelling)
        node = childMade(node, character);
    auto &list = senses[node];
    const auto same = [&](const Sense &other) { return other.symbol == sense.symbol; };
    if (std::none_of(list.begin(), list.end(), same)) list.push_back(sense);
}

std::uint32_t Vocabulary::childMade(std::uint32_t node, wchar_t character)
{
    const Edge &edge = m_edges[place(node, character)];
    if (edge.target != noNode) return edge.target;
    const auto made = std::uint32_t(m_nodes.size());
    m_nodes.emplace_back();
    if (++m_edgeCount * 2 > m_edges.size()) growEdges();
    insertEdge({node, character, made});
    return made;
}

std::uint32_t Vocabulary::child(std::uint32_t node, wchar_t character) const
{
    if (node == 0 && std::uint32_t(character) < m_first.size()) return m_first[std::size_t(character)];
    return m_edges[place(node, character)].target;
}

void Vocabulary::insertEdge(const Edge &edge) { m_edges[place(edge.node, edge.character)] = edge; }

void Vocabulary::growEdges()
{
    std::vector<Edge> previous(m_edges.size() * 2);
    previous.swap(m_edges);
    for (const Edge &edge : previous)
        if (edge.target != noNode) insertEdge(edge);
}

std::size_t Vocabulary::place(std::uint32_t node, wchar_t character) const
{
    const std::uint64_t key = (std::uint64_t(node) << 32) | std::uint32_t(character);
    const std::size_t mask = m_edges.size() - 1;
    std::size_t at = std::size_t((key * 0x9E3779B97F4A7C15U) >> 40) & mask;
    while (m_edges[at].target != noNode && (m_edges[at].node != node || m_edges[at].character != character))
        at = (at + 1) & mask;
    return at;
}

} // namespace nlp
