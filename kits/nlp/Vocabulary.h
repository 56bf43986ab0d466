#pragma once

#include "nlp/LanguageTable.h"
#include "nlp/Token.h"

#include <cstdint>
#include <unordered_map>
#include <vector>

namespace nlp {

/// The words of some languages as a tree of characters, in which the longest word that begins at a place
/// of a text is found in one walk. Unchanging once made, so any thread may read it.
class Vocabulary {
public:
    explicit Vocabulary(std::span<const LanguageTable *const> languages);

    struct Hit {
        std::uint32_t end = 0; ///< 0 = no word
        const Sense *senses = nullptr;
        std::uint8_t senseCount = 0;
    };

    /// The longest word at `begin` of `text` (folded). A word of a script with spaces between words ends
    /// where its letters and digits end.
    Hit longestWordAt(std::wstring_view text, std::uint32_t begin) const;

private:
    struct Node {
        std::uint32_t firstSense = 0;
        std::uint32_t senseCount = 0;
    };
    struct Edge {
        std::uint32_t node = noNode;
        wchar_t character = 0;
        std::uint32_t target = noNode;
    };
    using Senses = std::unordered_map<std::uint32_t, std::vector<Sense>>;

    static constexpr std::uint32_t noNode = ~0U;

    void add(std::wstring_view spelling, Sense sense, Senses &senses);
    std::uint32_t childMade(std::uint32_t node, wchar_t character);
    std::uint32_t child(std::uint32_t node, wchar_t character) const;
    void insertEdge(const Edge &edge);
    void growEdges();
    std::size_t place(std::uint32_t node, wchar_t character) const;

    std::vector<Node> m_nodes;
    std::vector<Edge> m_edges; ///< open addressing; a power of two
    std::size_t m_edgeCount = 0;
    std::vector<Sense> m_senses;
    std::array<std::uint32_t, 128> m_first; ///< the children of the root, for ASCII
};

} // namespace nlp
