#include "capture/ListNames.h"

#include "model/records/KWSmartProject.h"
#include "model/store/FoldedName.h"
#include "model/text/UnicodeText.h"

#include <algorithm>

namespace {

void appendFolded(QStringView segment, QString &folded)
{
    const bool isAscii = std::ranges::all_of(segment, [](QChar unit) { return unit < u'\u0080'; });
    if (!isAscii) {
        folded += foldedName(segment.toString());
        return;
    }
    for (const QChar unit : segment)
        if (!unit.isSpace()) folded += unit.toLower();
}

qsizetype nextBoundary(QStringView text, qsizetype position)
{
    do {
        ++position;
    } while (position < text.size() && !isWordBoundary(text, position));
    return position;
}

} // namespace

ListNames::ListNames(const QList<KWProjectModel> &projects)
{
    for (const KWProjectModel &each : projects) {
        if (each.closed || each.isDeleted) continue;
        add(each.name, each);
        if (each.isInbox) add(KWSmartProject::inbox().displayName(), each);
    }
    std::ranges::stable_sort(m_entries, {}, &Entry::folded);
    const auto isRepeated = [](const Entry &a, const Entry &b) { return a.folded == b.folded; };
    m_entries.erase(std::unique(m_entries.begin(), m_entries.end(), isRepeated), m_entries.end());
}

void ListNames::add(const QString &name, const KWProjectModel &project)
{
    if (QString folded = foldedName(name); !folded.isEmpty())
        m_entries.push_back({std::move(folded), project.sid, project.name});
}

std::optional<ListNames::Match> ListNames::longestAtStartOf(QStringView text,
                                                            const QSet<QString> &blockedIDs) const
{
    std::optional<Match> longest;
    QString folded;
    for (qsizetype end = 0; end < text.size();) {
        const qsizetype start = end;
        end = nextBoundary(text, start);
        const qsizetype before = folded.size();
        appendFolded(text.sliced(start, end - start), folded);
        if (folded.size() == before) continue;

        const auto entry = std::ranges::lower_bound(m_entries, folded, {}, &Entry::folded);
        if (entry == m_entries.end() || !entry->folded.startsWith(folded)) break;
        if (entry->folded.size() != folded.size()) continue;
        const bool isBlocked = blockedIDs.contains(entry->id);
        if (!isBlocked)
            longest = {&*entry, end};
        else if (!longest)
            longest = {nullptr, end};
    }
    return longest;
}
