#include "views/palette/NameRanking.h"

#include <algorithm>

namespace {

QString folded(const QString &text)
{
    QStringList words;
    for (const SearchWord &each : searchWords(text))
        words.append(each.folded);
    return words.join(u' ');
}

enum class Fit : std::uint8_t { Beginning, Words, Within, Not };

Fit fitOf(const QString &title, const QString &typed, const SearchPhrase &phrase, const QString &original)
{
    if (title.startsWith(typed)) return Fit::Beginning;
    if (phrase.fits({original})) return Fit::Words;
    return title.contains(typed) ? Fit::Within : Fit::Not;
}

} // namespace

NameRanking::NameRanking(QList<FoundRow> rows) : m_rows(std::move(rows))
{
    for (const FoundRow &each : std::as_const(m_rows))
        m_folded.append(folded(each.title));
}

NameRanking::Found NameRanking::find(const QString &typed, const QStringList &recent) const
{
    struct Candidate {
        Fit fit;
        qsizetype lastUse;
        qsizetype index;
    };
    const SearchPhrase phrase{typed};
    const QString wanted = folded(typed);
    // Characters that are no words, such as an arrow, are in no name.
    if (wanted.isEmpty() && !typed.trimmed().isEmpty()) return {};
    std::vector<Candidate> candidates;
    for (qsizetype i = 0; i < m_rows.size(); ++i) {
        const Fit fit =
            wanted.isEmpty() ? Fit::Beginning : fitOf(m_folded.at(i), wanted, phrase, m_rows.at(i).title);
        if (fit == Fit::Not) continue;
        const qsizetype use = recent.indexOf(m_rows.at(i).id);
        candidates.push_back({fit, use < 0 ? recent.size() : use, i});
    }
    std::ranges::stable_sort(candidates, {}, [](const Candidate &each) {
        return std::tuple{each.fit, each.lastUse};
    });
    Found found;
    for (const Candidate &each : candidates) {
        FoundRow row = m_rows.at(each.index);
        row.titleMarks = phrase.marksIn(row.title);
        (each.fit == Fit::Within ? found.withinWord : found.byWord).append(std::move(row));
    }
    return found;
}
