#pragma once

#include "lists/KWCategorySections.h"
#include "lists/KWTaskSortTypeMenu.h"
#include "lists/ManualPositions.h"
#include "model/store/KWTaskListItemModel.h"

#include <utility>

struct KWListIdentifier;
struct KWTagModel;
struct ShownList;

/// A section of a list with its rows. A value.
class KWTaskCategory {
public:
    using Section = KWCategorySection;
    using Rows = QList<KWTaskListItemModel>;

    KWTaskCategory(Section section, QString name, QString title);

    /// The sections of the rows in display order, those without rows left out: by the sort type, with pinned
    /// rows in front where `showPinnedSection` and closed ones behind; see docs/lists.md. A row whose parent
    /// is among the rows stands in the section of the parent. `inKanban`: as the columns of a board, empty
    /// ones included.
    static QList<KWTaskCategory> buildCategories(const Rows &with, const ShownList &in,
                                                 KWTaskSortType sortType, bool inKanban,
                                                 bool showPinnedSection);
    /// Puts rows that have a manual position in front of the others of their section, by it, and tells of
    /// which sort types there are such positions, the others included: where one of the rows would stand by
    /// it if the list were sorted so.
    static void resortBySortOrder(QList<KWTaskCategory> &in, const ShownList &shown, ManualOrders &found);
    /// The same for the section of pinned rows, where there is one.
    static void resortPinnedIfNeeded(QList<KWTaskCategory> &in, const ManualPositions &positions);

    /// The tags in the order of their sections in the list `with`; `in` has the order of the sidebar. A child
    /// stands behind its parent. In the list of a parent its children part the rows, which leaves the other
    /// tags out; what has none of them comes last, under the parent.
    static QList<KWTagModel> categoriesSortedByTag(QList<KWTagModel> in, const KWListIdentifier &with);

    /// The row that loads more completed ones, as the section behind them.
    static const KWTaskCategory &loadMore();
    /// The same for what comes after the days of a calendar that are shown.
    static KWTaskCategory laterEvents();

    const Section &section() const { return m_section; }
    /// Stable text under which folding is remembered: "date:overdue", "priority:5", "tag:errand".
    const QString &name() const { return m_name; }
    /// In the language of the interface; empty for a section without a header.
    const QString &title() const { return m_title; }

    /// In display order; a child stands behind its parent.
    const Rows &models() const { return m_models; }
    void setModels(Rows models) { m_models = std::move(models); }
    Rows takeModels() { return std::exchange(m_models, {}); }
    /// Of its tasks, those included that are not loaded.
    int count() const { return int(m_models.size()) + m_unloadedCount; }
    void setUnloadedCount(int count) { m_unloadedCount = count; }
    bool isEmpty() const { return m_models.isEmpty(); }
    bool hidesHeader() const { return m_title.isEmpty(); }

    template <class Kind>
    const Kind *as() const
    {
        return std::get_if<Kind>(&m_section);
    }
    bool isDate() const { return as<KWDateCategorySection>(); }
    bool isSingleDate() const;
    bool isOverdue() const;
    bool isPriority() const { return as<KWPriorityCategorySection>(); }
    bool isProject() const { return as<KWProjectCategorySection>(); }
    bool isTag() const { return as<KWTagCategorySection>(); }
    bool isAssignee() const { return as<KWAssigneeCategorySection>(); }
    bool isColumn() const { return as<KWColumnCategorySection>(); }
    bool isCompleted() const { return as<KWCompletedCategorySection>(); }
    bool isPinned() const { return as<KWPinnedCategorySection>(); }
    bool isHabit() const { return as<KWHabitCategorySection>(); }
    /// Habits of one part of the day.
    bool isHabitSection() const;
    bool isCalSubscription() const { return as<KWCalSubscriptionCategorySection>(); }
    bool isNoteKind() const { return as<KWNoteCategorySection>(); }
    /// Its rows are tasks, though there may be notes among them.
    bool isTaskKind() const;
    bool isDefault() const { return as<KWDefaultCategorySection>(); }
    bool isLoadMore() const { return as<KWLoadMoreCategorySection>(); }

    bool operator==(const KWTaskCategory &) const = default;

private:
    Section m_section;
    QString m_name;
    QString m_title;
    Rows m_models;
    int m_unloadedCount = 0;
};
