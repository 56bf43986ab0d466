#pragma once

#include "habits/HabitPageContent.h"

#include <QAbstractItemModel>

/// The habits for Qt's views: sections with habits below them, and beside each habit its last seven days, one
/// column each. Or, in one section, the archived ones. Main thread only.
class HabitListModel : public QAbstractItemModel {
    Q_OBJECT

public:
    static constexpr int days = 7;
    static constexpr int columns = 1 + days; ///< the name, then the days, earliest first
    static constexpr int todayColumn = days;
    enum Role { TodayRole = Qt::UserRole }; ///< of a header: whether its day is today

    enum class Shows { Active, Archived };

    using QAbstractItemModel::QAbstractItemModel;

    /// Rows that stay where they are only change; else the model is reset.
    void setContent(const HabitPageContent &content, Shows shows, std::chrono::weekday firstWeekday);
    const HabitPageContent &content() const { return m_content; }
    Shows shows() const { return m_shows; }
    std::chrono::weekday firstWeekday() const { return m_firstWeekday; }
    const QList<HabitSection> &sections() const { return m_sections; }

    bool isSection(const QModelIndex &index) const { return index.isValid() && index.internalId() == 0; }
    /// The section itself, or the one in which the habit is.
    const HabitSection &sectionAt(const QModelIndex &index) const;
    /// None of a section.
    const HabitRow *rowAt(const QModelIndex &index) const;
    /// None in the column of the name, and of a section.
    const HabitDay *dayAt(const QModelIndex &index) const;
    QModelIndex indexOf(const QString &habitID, int column = 0) const;
    QModelIndex indexOfSection(const QString &sectionID) const;

    QModelIndex index(int row, int column, const QModelIndex &parent = {}) const override;
    QModelIndex parent(const QModelIndex &index) const override;
    int rowCount(const QModelIndex &parent = {}) const override;
    int columnCount(const QModelIndex &parent = {}) const override;
    QVariant data(const QModelIndex &index, int role) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role) const override;
    Qt::ItemFlags flags(const QModelIndex &index) const override;

private:
    QString spoken(const QModelIndex &index) const;

    HabitPageContent m_content;
    QList<HabitSection> m_sections; // those that are shown
    Shows m_shows = Shows::Active;
    std::chrono::weekday m_firstWeekday = std::chrono::Monday;
};
