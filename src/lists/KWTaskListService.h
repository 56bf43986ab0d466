#pragma once

#include "lists/ListContent.h"
#include "lists/TaskListRows.h"
#include "model/account/KWAccountManager.h"
#include "model/events/KWEventBus.h"
#include "model/events/PendingDeletes.h"
#include "model/store/KWCompletionLoader.h"
#include "model/store/UndoToken.h"

#include <functional>
#include <memory>
#include <vector>

/// The list that the middle pane shows, in sections, kept true while tasks and the day change. Tasks that
/// wait to be deleted are left out. The top of a long list is there at once; the rest follows from the
/// background. Main thread.
class KWTaskListService {
public:
    KWTaskListService(KWCoreDataManager &manager, KWAccountManager &account, KWNotificationCenter &center,
                      KWEventBus &bus);

    const KWListIdentifier &list() const { return m_list; }
    const QList<KWTaskCategory> &categories() const { return m_sections.categories; }
    /// The rows of all sections.
    QList<KWTaskListItemModel> rows() const;
    /// What a list has when it is first shown and read to its end.
    static ListExtent firstExtent(const KWListIdentifier &list);

    const ShownList &shown() const { return m_content.shown; }
    KWTaskSortType sortType() const { return shown().sortType(); }
    /// Whether the menu of sort types is offered.
    bool isSortable() const { return shown().isSortable; }
    KWTaskSortTypeMenu sortMenu() const;
    /// Remembered for the list.
    Result<void> setSortType(KWTaskSortType sortType);

    /// The positions set by hand that the reset item of the menu names are given up.
    Result<UndoToken> resetManualOrder();

    /// Whether completed and abandoned tasks stand at the end. Remembered for the list.
    bool showsCompleted() const { return shown().showsCompleted; }
    Result<void> setShowsCompleted(bool showsCompleted);
    /// Some more of those that are shown at most, when the service that keeps them has handed them over; of a
    /// calendar, as many more days.
    void loadMore();

    /// Whether events of subscribed calendars stand among the tasks, where shown().mayShowEvents().
    /// Remembered for the list.
    bool showsEvents() const { return shown().showsEvents; }
    Result<void> setShowsEvents(bool showsEvents);

    /// Remembered for the list; onRowsChanged is called.
    const FoldedRows &folded() const { return m_folded; }
    void setSectionFolded(const QString &name, bool isFolded) { setSectionsFolded({name}, isFolded); }
    void setSectionsFolded(const QStringList &names, bool isFolded);
    void setTaskFolded(const QString &taskID, bool isFolded);

    /// Tasks that have waited to be deleted since before the service was there. To be told before select().
    void leaveOut(const QSet<QString> &waitingTasks) { m_pendingDeletes.startWith(waitingTasks); }
    void select(const KWListIdentifier &list);
    void reload();
    /// No list is selected any more.
    void clear();

    /// The sections, their rows or what is folded are other ones now.
    std::function<void()> onRowsChanged;
    /// Has later occurrences from one moment to another generated. It is asked for those of Today, Tomorrow
    /// and Next 7 Days, and of calendars; KWKWRepeatInstanceGeneratedNotification tells when there are
    /// others.
    std::function<void(Instant from, Instant to)> onOccurrencesNeeded;
    /// Something could not be read or saved; the sentence says why.
    std::function<void(const QString &)> onFailure;

private:
    struct Request {};

    ListExtent extent(std::int64_t openTasks) const
    {
        return {openTasks, m_countToShowOfCompleted, m_calendarDays};
    }
    void take(const StoreChange &change);
    void askForOccurrences() const;
    bool readAgain(const QStringList &taskIDs);
    bool readTop();
    void readAll();
    void show(ListContent content, ListContent::Sections sections);
    void readFolding();
    void saveFolding();
    void tell(const Result<void> &result);

    KWCoreDataManager &m_manager;
    KWAccountManager &m_account;
    KWNotificationCenter &m_center;
    KWListIdentifier m_list;
    ListContent m_content;
    ListContent::Sections m_sections; // of m_content
    FoldedRows m_folded;
    int m_countToShowOfCompleted = 0;
    int m_calendarDays = 0;                               // of a calendar, from today on
    std::optional<KWCompletionLoader> m_completionLoader; // of m_list
    PendingDeletes m_pendingDeletes;
    bool m_showsOtherList = false;      // the sections are still those of the list selected before
    bool m_isReading = false;           // the whole list, in the background
    bool m_savesFolding = false;        // what is announced then is known here
    std::shared_ptr<Request> m_request; // the latest; an answer to another one is dropped
    std::vector<KWNotificationCenter::Observation> m_observations;
    KWEventBus::Registration m_registration;
};
