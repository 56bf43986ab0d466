#include "views/habits/HabitListModel.h"

#include "model/settings/KWLocalizedString.h"
#include "model/text/DayText.h"
#include "views/habits/HabitPhrases.h"

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

// The others stand there when there are some.
QList<HabitSection> sectionsToShow(const HabitPageContent &content, HabitListModel::Shows shows)
{
    if (shows == HabitListModel::Shows::Archived)
        return {
            {.sectionID = u"archived"_s, .name = KWLocalizedString("Archived"), .rows = content.archived}};
    QList<HabitSection> sections = content.sections;
    if (sections.size() > 1 && sections.last().rows.isEmpty()) sections.removeLast();
    return sections;
}

QStringList idsIn(const QList<HabitSection> &sections)
{
    QStringList ids;
    for (const HabitSection &section : sections) {
        ids << u"section:"_s + section.sectionID;
        for (const HabitRow &each : section.rows)
            ids << each.habit.sid;
    }
    return ids;
}

} // namespace

void HabitListModel::setContent(const HabitPageContent &content, Shows shows,
                                std::chrono::weekday firstWeekday)
{
    const QList<HabitSection> sections = sectionsToShow(content, shows);
    const bool isSameDay = content.today == m_content.today;
    const bool isAsBefore = idsIn(sections) == idsIn(m_sections);
    if (!isAsBefore) beginResetModel();
    m_content = content;
    m_sections = sections;
    m_shows = shows;
    m_firstWeekday = firstWeekday;
    if (!isAsBefore) return endResetModel();
    if (!isSameDay) Q_EMIT headerDataChanged(Qt::Horizontal, 0, columns - 1);
    for (int i = 0; i < m_sections.size(); ++i) {
        const QModelIndex section = index(i, 0);
        Q_EMIT dataChanged(section, section);
        if (const int rows = rowCount(section); rows > 0)
            Q_EMIT dataChanged(index(0, 0, section), index(rows - 1, columns - 1, section));
    }
}

const HabitSection &HabitListModel::sectionAt(const QModelIndex &index) const
{
    return m_sections.at(isSection(index) ? index.row() : int(index.internalId()) - 1);
}

const HabitRow *HabitListModel::rowAt(const QModelIndex &index) const
{
    return index.isValid() && !isSection(index) ? &sectionAt(index).rows.at(index.row()) : nullptr;
}

const HabitDay *HabitListModel::dayAt(const QModelIndex &index) const
{
    const HabitRow *row = rowAt(index);
    return row && index.column() > 0 ? &row->week.at(std::size_t(index.column() - 1)) : nullptr;
}

QModelIndex HabitListModel::indexOf(const QString &habitID, int column) const
{
    for (int section = 0; section < m_sections.size(); ++section)
        for (int row = 0; row < m_sections.at(section).rows.size(); ++row)
            if (m_sections.at(section).rows.at(row).habit.sid == habitID)
                return index(row, column, index(section, 0));
    return {};
}

QModelIndex HabitListModel::indexOfSection(const QString &sectionID) const
{
    const auto found = std::ranges::find(m_sections, sectionID, &HabitSection::sectionID);
    return found == m_sections.end() ? QModelIndex{} : index(int(found - m_sections.begin()), 0);
}

QModelIndex HabitListModel::index(int row, int column, const QModelIndex &parent) const
{
    if (row < 0 || column < 0 || row >= rowCount(parent) || column >= columns) return {};
    return createIndex(row, column, quintptr(parent.isValid() ? parent.row() + 1 : 0));
}

QModelIndex HabitListModel::parent(const QModelIndex &index) const
{
    return !index.isValid() || isSection(index) ? QModelIndex{} : createIndex(int(index.internalId()) - 1, 0);
}

int HabitListModel::rowCount(const QModelIndex &parent) const
{
    if (!parent.isValid()) return int(m_sections.size());
    return isSection(parent) && parent.column() == 0 ? int(m_sections.at(parent.row()).rows.size()) : 0;
}

int HabitListModel::columnCount(const QModelIndex &) const { return columns; }

QVariant HabitListModel::data(const QModelIndex &index, int role) const
{
    const bool isWanted =
        role == Qt::DisplayRole || role == Qt::AccessibleTextRole || role == Qt::ToolTipRole;
    if (!index.isValid() || !isWanted) return {};
    if (role == Qt::AccessibleTextRole) return spoken(index);
    const HabitRow *row = rowAt(index);
    if (!row) return index.column() == 0 ? sectionAt(index).name : QString{};
    if (const HabitDay *day = dayAt(index))
        return role == Qt::ToolTipRole ? HabitPhrases::spokenDay(*day, row->habit, QLocale{}) : QVariant{};
    return role == Qt::DisplayRole ? row->habit.name : QVariant{};
}

QString HabitListModel::spoken(const QModelIndex &index) const
{
    const QLocale locale;
    const HabitRow *row = rowAt(index);
    if (!row)
        return KWLocalizedString("%1, %2").arg(sectionAt(index).name,
                                               locale.toString(sectionAt(index).rows.size()));
    if (const HabitDay *day = dayAt(index))
        return KWLocalizedString("%1, %2").arg(row->habit.name,
                                               HabitPhrases::spokenDay(*day, row->habit, locale));
    return QStringList{
        row->habit.name, HabitPhrases::summary(row->habit, m_firstWeekday, locale),
        KWLocalizedString("Today: %1").arg(HabitPhrases::state(row->today(), row->habit, locale))}
        .join(u", "_s);
}

QVariant HabitListModel::headerData(int section, Qt::Orientation orientation, int role) const
{
    if (orientation != Qt::Horizontal) return {};
    if (role == TodayRole) return section == todayColumn;
    if (role != Qt::DisplayRole && role != Qt::AccessibleTextRole) return {};
    if (section == 0) return role == Qt::AccessibleTextRole ? KWLocalizedString("Name") : QString{};
    if (section == todayColumn) return KWLocalizedString("Today");
    const Day day = m_content.today - std::chrono::days{todayColumn - section};
    const QDate date = dateOf(day);
    const QLocale locale;
    return locale.standaloneDayName(date.dayOfWeek(), QLocale::ShortFormat) + u'\n' +
           locale.toString(date.day());
}

Qt::ItemFlags HabitListModel::flags(const QModelIndex &index) const
{
    if (!index.isValid()) return {};
    const Qt::ItemFlags flags = Qt::ItemIsEnabled | Qt::ItemIsSelectable;
    return isSection(index) ? flags : flags | Qt::ItemIsDragEnabled | Qt::ItemNeverHasChildren;
}
