#include "focus/FocusRecordQueue.h"
#include "focus/FocusTargetTitle.h"
#include "focus/KWPomoRunningManager.h"
#include "model/OrvaneKit.h"
#include "model/records/KWTask.h"

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
    // It waits even if it is nowhere on disk.
    (void)m_records.store({.startDate = m_pomoStartDate,
                           .endDate = endDate,
                           .status = status,
                           .pauseDuration = pauseSecondsOf(stretches),
                           .stretches = stretches});
    m_slices.clear();
}

void KWPomoRunningManager::keepInJournal()
{
    if (m_slices.isEmpty()) return;
    const QList<FocusStretch> stretches = m_slices.stretches(now());
    m_journal.keepRunning({.userID = m_kit.account().currentUserID(),
                           .record = {.startDate = m_pomoStartDate,
                                      .endDate = stretches.last().endDate,
                                      .pauseDuration = pauseSecondsOf(stretches),
                                      .stretches = stretches}});
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
