#include "lists/SectionUpdate.h"

#include "lists/RowOrder.h"

#include <algorithm>
#include <optional>

namespace {

using Row = KWTaskListItemModel;

bool isPlain(const Row &row)
{
    return row.parentId.isEmpty() && !row.isClosed() && !row.isPinned() && !row.isNote();
}

struct Place {
    qsizetype section;
    qsizetype row;
};

// Where the changed tasks stand; nothing where other rows move with them.
std::optional<QList<Place>> placesOf(const QSet<QString> &changed, const QList<KWTaskCategory> &sections)
{
    QList<Place> places;
    for (qsizetype i = 0; i < sections.size(); ++i) {
        const KWTaskCategory::Rows &rows = sections.at(i).models();
        for (qsizetype k = 0; k < rows.size(); ++k) {
            const Row &row = rows.at(k);
            if (!row.isClosed() && (row.isNote() || !row.parentId.isEmpty())) return std::nullopt;
            if (!changed.contains(row.taskID())) continue;
            if (!isPlain(row)) return std::nullopt;
            places.append({i, k});
        }
    }
    return places;
}

// The section of each row, where it is there.
std::optional<QList<qsizetype>> sectionsFor(const QList<Row> &rows, const ShownList &shown,
                                            const QList<KWTaskCategory> &sections)
{
    const SectionPlaces places{shown, shown.sortType(), {.showPinnedSection = true}};
    QList<qsizetype> found;
    for (const Row &each : rows) {
        const QString name = places.sectionAt(places.of(each)).name();
        const auto section = std::ranges::find(sections, name, &KWTaskCategory::name);
        if (!isPlain(each) || section == sections.end()) return std::nullopt;
        found.append(section - sections.begin());
    }
    return found;
}

} // namespace

bool putIntoSections(const QList<Row> &rows, const QSet<QString> &changed, const ShownList &shown,
                     QList<KWTaskCategory> &sections)
{
    if (shown.positions.hasAnyInSections()) return false;
    const auto before = placesOf(changed, sections);
    const auto after = sectionsFor(rows, shown, sections);
    if (!before || !after) return false;
    for (const Place &each : *before) {
        const auto leaving = std::ranges::count(*before, each.section, &Place::section);
        if (leaving == sections.at(each.section).models().size()) return false;
    }

    const RowOrder order{shown.sortType(), shown.locale};
    for (auto each = before->crbegin(); each != before->crend(); ++each) {
        KWTaskCategory::Rows models = sections[each->section].takeModels();
        models.removeAt(each->row);
        sections[each->section].setModels(std::move(models));
    }
    for (qsizetype i = 0; i < rows.size(); ++i) {
        KWTaskCategory &section = sections[after->at(i)];
        KWTaskCategory::Rows models = section.takeModels();
        models.insert(order.placeOf(rows.at(i), models), rows.at(i));
        section.setModels(std::move(models));
    }
    return true;
}
