#include "lists/ManualPositions.h"

#include "lists/KWTaskCategory.h"
#include "model/records/DayStamp.h"
#include "model/store/ColumnCodec.h"
#include "model/store/Connection.h"
#include "model/store/PositionKind.h"

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

// Days that are several: no calendar has such.
constexpr int overdueStamp = 1;
constexpr int laterStamp = 2;
constexpr int noDateStamp = 0;

int stampOf(const KWDateCategorySection &section)
{
    if (!section.date) return noDateStamp;
    if (section.isOverdue) return overdueStamp;
    return section.isMultiDate ? laterStamp : DayStamp::fromDay(*section.date);
}

} // namespace

ManualPositions ManualPositions::read(const QString &contextID, Connection &connection)
{
    ManualPositions positions;
    for (const KWTaskSortType sortType : {KWTaskSortTypeDate, KWTaskSortTypePriority, KWTaskSortTypeProject,
                                          KWTaskSortTypeTag, KWTaskSortTypePinnedDate})
        visitPositionKind(sortType, [&]<class Kind>(Kind kind) {
            auto statement = connection.prepare(std::string{"SELECT "} + kind.column +
                                                ", taskID, sortOrder FROM " + Kind::Model::tableName +
                                                " WHERE contextID = ? AND isDeleted = 0 ORDER BY id");
            statement.bind(1, contextID);
            QString group, task;
            std::int64_t order = 0;
            while (statement->executeStep()) {
                columns::read(statement->getColumn(0), group);
                columns::read(statement->getColumn(1), task);
                columns::read(statement->getColumn(2), order);
                positions.m_positions[sortType][group].insert(task, order);
            }
        });
    return positions;
}

ManualPositions::Positions ManualPositions::in(const KWTaskCategory &section, KWTaskSortType sortType) const
{
    const std::optional<QString> group = positionGroup(section);
    return group ? of(sortType).value(*group) : Positions{};
}

QHash<QString, ManualPositions::Positions> ManualPositions::of(KWTaskSortType sortType) const
{
    const auto found = m_positions.find(sortType);
    return found == m_positions.end() ? QHash<QString, Positions>{} : found->second;
}

bool ManualPositions::hasAnyInSections() const
{
    return std::ranges::any_of(m_positions, [](const auto &each) {
        return each.first != KWTaskSortTypePinnedDate && !each.second.isEmpty();
    });
}

std::optional<QString> positionGroup(const KWTaskCategory &section)
{
    if (const auto *date = section.as<KWDateCategorySection>()) return QString::number(stampOf(*date));
    if (const auto *priority = section.as<KWPriorityCategorySection>())
        return QString::number(priority->priority);
    if (const auto *list = section.as<KWProjectCategorySection>()) return list->projectID;
    if (const auto *tag = section.as<KWTagCategorySection>()) return tag->tag.value_or(QString{});
    if (section.isPinned()) return QString{};
    return std::nullopt;
}
