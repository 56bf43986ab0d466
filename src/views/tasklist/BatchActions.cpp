#include "views/tasklist/BatchActions.h"

#include "app/KWDelayDeleteManager.h"
#include "app/OrvaneLink.h"
#include "model/records/KWChecklistItem.h"
#include "model/records/KWTask.h"
#include "model/records/PriorityNames.h"
#include "model/store/FindAll.h"
#include "model/store/KWCoreDataManager.h"
#include "model/store/KWTaskCopier.h"
#include "model/store/KWTaskMerger.h"
#include "model/store/KWTaskMover.h"
#include "model/text/DisplayTitle.h"
#include "views/wording/DateWording.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QLocale>

BatchActions::BatchActions(const Rooms &rooms)
    : m_rooms(rooms), m_batch(rooms.manager), m_ticker(rooms.manager)
{
}

void BatchActions::report(const Result<UndoToken> &done, const QStringList &ids, const QString &message)
{
    if (!done) return Q_EMIT failed(done.error().sentence);
    if (done->isEmpty()) return; // it was so before
    const QString several = haveItems(ids) ? tr("%1 items · %2") : tr("%1 tasks · %2");
    const QString words = ids.size() > 1 ? several.arg(ids.size()).arg(message) : message;
    Q_EMIT changed(words, [this, undo = *done] { takeBack(undo); });
}

void BatchActions::takeBack(const UndoToken &done)
{
    if (const Result<void> undone = done.undo(m_rooms.manager); !undone)
        Q_EMIT failed(undone.error().sentence);
}

bool BatchActions::haveItems(const QStringList &ids) const
{
    return !findStored<KWChecklistItem>(ids, m_rooms.manager.MR_defaultContext()).isEmpty();
}

void BatchActions::reportTick(const Result<KWTaskTicker::Ticked> &done, const QStringList &ids)
{
    if (!done) return report(done.error(), ids, {});
    report(done->undo, ids,
           done->status == KWTaskStatusOpen        ? tr("Reopened")
           : done->status == KWTaskStatusAbandoned ? tr("Abandoned")
                                                   : tr("Completed"));
}

void BatchActions::tick(const QStringList &ids) { reportTick(m_ticker.tick(ids), ids); }

void BatchActions::abandon(const QStringList &taskIDs)
{
    reportTick(m_ticker.updateStatus(KWTaskStatusAbandoned, taskIDs), taskIDs);
}

void BatchActions::setDay(const QStringList &ids, Day day)
{
    const QString words = DateWording::relativeDay(day, m_rooms.clock.today(), QLocale{});
    report(m_batch.setDay(ids, day), ids, tr("Date: %1").arg(words));
}

void BatchActions::clearDate(const QStringList &ids)
{
    report(m_batch.clearDate(ids), ids, tr("Date removed"));
}

void BatchActions::setPriority(const QStringList &taskIDs, KWTaskPriority priority)
{
    report(m_batch.setPriority(taskIDs, priority), taskIDs, tr("Priority: %1").arg(displayName(priority)));
}

void BatchActions::setTag(const QStringList &taskIDs, const QString &tag, const QString &label,
                          TaskBatch::Tagging tagging)
{
    report(m_batch.setTag(taskIDs, tag, tagging), taskIDs,
           (tagging == TaskBatch::Tagging::Add ? tr("Tagged #%1") : tr("No longer tagged #%1")).arg(label));
}

void BatchActions::setPinned(const QStringList &taskIDs, TaskBatch::Pinning pinning)
{
    report(m_batch.setPinned(taskIDs, pinning), taskIDs,
           pinning == TaskBatch::Pinning::Pin ? tr("Pinned") : tr("Unpinned"));
}

void BatchActions::convert(const QStringList &taskIDs, KWTaskKind kind)
{
    report(m_batch.setKind(taskIDs, kind), taskIDs,
           kind == KWTaskKindNote ? tr("Converted to a note") : tr("Converted to a task"));
}

void BatchActions::moveToList(const QStringList &taskIDs, const QString &listID, const QString &name)
{
    report(KWTaskMover{m_rooms.manager}.move(taskIDs, listID, KWTaskMover::From::Lists), taskIDs,
           tr("Moved to %1").arg(name));
}

void BatchActions::merge(const QStringList &taskIDs)
{
    report(KWTaskMerger{m_rooms.manager}.merge(taskIDs), taskIDs, tr("Merged"));
}

void BatchActions::duplicate(const QStringList &taskIDs)
{
    const auto copied = KWTaskCopier{m_rooms.manager, m_rooms.center}.copy(taskIDs);
    if (!copied) return Q_EMIT failed(copied.error().sentence);
    report(copied->undo, taskIDs, tr("Duplicated"));
    Q_EMIT duplicated(copied->taskIDs);
}

void BatchActions::remove(const QStringList &ids)
{
    if (!haveItems(ids)) return m_rooms.deletes.deleteTasks(ids);
    const Result<UndoToken> removed = m_batch.remove(ids);
    if (!removed) return Q_EMIT failed(removed.error().sentence);
    m_rooms.deletes.deleteChecklistItemsWithCount(
        int(ids.size()), m_rooms.toasts, [] {}, [this, undo = *removed] { takeBack(undo); }, [] {});
}

void BatchActions::copyLinks(const QStringList &taskIDs) const
{
    QStringList links;
    for (const QString &each : taskIDs)
        links.append(OrvaneLink{OrvaneLink::Kind::Task, each}.text());
    QGuiApplication::clipboard()->setText(links.join(u'\n'));
}

void BatchActions::copyTitles(const QStringList &ids) const
{
    ObjectContext &context = m_rooms.manager.MR_defaultContext();
    QStringList titles;
    for (const QString &each : ids)
        if (const KWTask *task = context.find<KWTask>(each))
            titles.append(displayTitle((*task)->title));
        else if (const KWChecklistItem *item = context.find<KWChecklistItem>(each))
            titles.append(displayTitle((*item)->title));
    QGuiApplication::clipboard()->setText(titles.join(u'\n'));
}
