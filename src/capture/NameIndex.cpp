#include "capture/NameIndex.h"

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

NameIndex NameIndex::ofLists(const QList<KWProjectModel> &projects)
{
    NameIndex index;
    for (const KWProjectModel &each : projects) {
        if (each.closed || each.isDeleted) continue;
        index.add(each.name, each.sid, each.name);
        if (each.isInbox) index.add(KWSmartProject::inbox().displayName(), each.sid, each.name);
    }
    index.finish();
    return index;
}

NameIndex NameIndex::ofMembers(const QList<KWTeamworkerModel> &members)
{
    NameIndex index;
    for (const KWTeamworkerModel &each : members)
        index.add(each.name, QString::number(each.userServerID), each.name);
    index.finish();
    return index;
}

void NameIndex::add(const QString &name, const QString &id, const QString &shownName)
{
    if (QString folded = foldedName(name); !folded.isEmpty())
        m_entries.push_back({std::move(folded), id, shownName});
}

void NameIndex::finish() { std::ranges::stable_sort(m_entries, {}, &Entry::folded); }

const NameIndex::Entry &NameIndex::chosen(std::vector<Entry>::const_iterator first,
                                          const QString &chosenID) const
{
    for (auto each = first; each != m_entries.end() && each->folded == first->folded; ++each)
        if (each->id == chosenID) return *each;
    return *first;
}

std::optional<NameIndex::Match> NameIndex::longestAtStartOf(QStringView text, const QSet<QString> &blockedIDs,
                                                            const QString &chosenID) const
{
    std::optional<Match> longest;
    QString folded;
    bool wasSpace = false;
    for (qsizetype end = 0; end < text.size();) {
        const qsizetype start = end;
        end = nextBoundary(text, start);
        const qsizetype before = folded.size();
        appendFolded(text.sliced(start, end - start), folded);
        const bool isSpace = folded.size() == before;
        if (isSpace && (wasSpace || text[start] < u' ')) break;
        wasSpace = isSpace;
        if (isSpace) continue;

        const auto first = std::ranges::lower_bound(m_entries, folded, {}, &Entry::folded);
        if (first == m_entries.end() || !first->folded.startsWith(folded)) break;
        if (first->folded.size() != folded.size()) continue;
        const Entry &entry = chosen(first, chosenID);
        if (!blockedIDs.contains(entry.id))
            longest = {&entry, end};
        else if (!longest)
            longest = {nullptr, end};
    }
    return longest;
}

QString NameIndex::nameOf(const QString &id) const
{
    const auto found = std::ranges::find(m_entries, id, &Entry::id);
    return found == m_entries.end() ? QString{} : found->name;
}
