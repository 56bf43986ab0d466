#include "focus/FocusTargetTitle.h"
#include "focus/KWPomoRunningManager.h"
#include "focus/PomoJournal.h"
#include "model/OrvaneKit.h"

// What becomes of the slices of a Pomo: its record, the journal, and what is gone meanwhile.

// A Pomo that ended while the person was asked whether to give it up, and who does something else now.
void KWPomoRunningManager::saveWhatRanOut()
{
    if (m_state != KWPomoRunningState::waitingToRelax || !isConfirmingToExit()) return;
    saveSlices(KWPomoStatusCompleted, m_pomoEndDate);
    setConfirmingToExit(false);
}

void KWPomoRunningManager::saveSlices(KWPomoStatus status, Instant endDate)
{
    if (m_slices.isEmpty()) return;
    endQuestion();
    m_slices.closeAt(m_confirmingToExitDate.value_or(endDate));
    const QList<FocusStretch> stretches = m_slices.stretches(endDate);
    const FocusRecord record{.startDate = m_pomoStartDate,
                             .endDate = m_pomoEndDate,
                             .status = status,
                             .pauseDuration =
                                 std::chrono::round<std::chrono::seconds>(pauseOf(stretches)).count(),
                             .stretches = stretches};
    m_records.store(record);
    // What could not be stored outlives the program.
    if (m_records.isEmpty() || status != KWPomoStatusCompleted)
        m_journal.clear();
    else
        keepInJournal();
    m_slices.clear();
}

void KWPomoRunningManager::keepInJournal()
{
    if (m_slices.isEmpty()) return;
    m_journal.keep({.userID = m_kit.account().currentUserID(),
                    .startDate = m_pomoStartDate,
                    .stretches = m_slices.stretches(now())});
}

void KWPomoRunningManager::handleTasksChanged(const StoreChange &change)
{
    const auto &tasks = change.of(RecordKind::Task);
    if (tasks.isEmpty() || m_slices.isEmpty()) return;
    QStringList gone = tasks.deleted;
    for (const QString &each : tasks.updated) {
        const KWTask *task = m_kit.context().find<KWTask>(each);
        if (!task || task->isDeleted()) gone.append(each);
    }
    forgetTasks(gone);
}

// It does not say which tasks are others now.
void KWPomoRunningManager::dataDidChangeOutsideMainApp()
{
    QStringList gone;
    for (const FocusSlice &each : m_slices.all())
        if (!each.taskID().isEmpty() && !exists(each.target, m_kit.context())) gone.append(each.taskID());
    forgetTasks(gone);
}

void KWPomoRunningManager::forgetTasks(const QStringList &taskIDs)
{
    m_slices.forgetTasks(taskIDs);
    if (m_belonging && taskIDs.contains(m_belonging->target.taskID())) m_belonging->target = {};
}
