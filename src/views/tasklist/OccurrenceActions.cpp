#include "views/tasklist/OccurrenceActions.h"

#include "model/records/KWTask.h"
#include "model/store/KWCoreDataManager.h"
#include "views/tasklist/BatchActions.h"

#include <QMenu>

OccurrenceActions::OccurrenceActions(KWCoreDataManager &manager, BatchActions &common)
    : m_manager(manager), m_common(common), m_occurrences(manager)
{
}

bool OccurrenceActions::haveSome(const KWTaskModel &task)
{
    return task.status == KWTaskStatusOpen && !task.isTrashed && task.startDate && !task.repeatRule.isEmpty();
}

void OccurrenceActions::addTo(QMenu &menu, const TaskOccurrence &occurrence)
{
    QMenu &repeats = *menu.addMenu(tr("This Occurrence"));
    repeats.addAction(tr("Skip"), this, [this, occurrence] { skip(occurrence); });
    repeats.addAction(tr("Make It a Task of Its Own"), this,
                      [this, occurrence] { part(occurrence, OccurrenceScope::OnlyThis); });
    if (!isFirst(occurrence))
        repeats.addAction(tr("Part It and the Later Ones"), this,
                          [this, occurrence] { part(occurrence, OccurrenceScope::ThisAndLater); });
    repeats.addAction(tr("Make It the Last One"), this, [this, occurrence] { endWith(occurrence); });
}

bool OccurrenceActions::isFirst(const TaskOccurrence &occurrence) const
{
    const KWTask *task = m_manager.MR_defaultContext().find<KWTask>(occurrence.taskID);
    return task && (*task)->startDate == occurrence.startDate;
}

QMenu &OccurrenceActions::askScope(const TaskOccurrence &occurrence, const QPoint &position,
                                   const std::function<void(OccurrenceScope)> &chosen)
{
    auto *menu = new QMenu;
    menu->setAttribute(Qt::WA_DeleteOnClose);
    const auto add = [&](const QString &text, OccurrenceScope scope) {
        return menu->addAction(text, this, [chosen, scope] { chosen(scope); });
    };
    QAction *onlyThis = add(tr("Only This One"), OccurrenceScope::OnlyThis);
    if (!isFirst(occurrence)) add(tr("This and Later Ones"), OccurrenceScope::ThisAndLater);
    add(tr("All of Them"), OccurrenceScope::All);
    menu->setActiveAction(onlyThis);
    menu->popup(position);
    return *menu;
}

std::optional<QString> OccurrenceActions::report(const Result<TaskOccurrences::Changed> &done,
                                                 const QString &message)
{
    if (!done) {
        m_common.report(done.error(), {}, {});
        return std::nullopt;
    }
    m_common.report(done->undo, {done->taskID}, message);
    return done->taskID;
}

void OccurrenceActions::skip(const TaskOccurrence &occurrence)
{
    m_common.report(m_occurrences.skip(occurrence), {occurrence.taskID}, tr("Skipped"));
}

std::optional<QString> OccurrenceActions::close(const TaskOccurrence &occurrence, KWTaskStatus status)
{
    return report(m_occurrences.close(occurrence, status),
                  status == KWTaskStatusAbandoned ? tr("Abandoned") : tr("Completed"));
}

void OccurrenceActions::part(const TaskOccurrence &occurrence, OccurrenceScope scope)
{
    report(m_occurrences.part(occurrence, scope), tr("A task of its own now"));
}

std::optional<QString> OccurrenceActions::move(const TaskOccurrence &occurrence, OccurrenceScope scope,
                                               const TaskOccurrences::Dates &to, const QString &message)
{
    return report(m_occurrences.move(occurrence, scope, to), message);
}

void OccurrenceActions::endWith(const TaskOccurrence &occurrence)
{
    m_common.report(m_occurrences.endWith(occurrence), {occurrence.taskID}, tr("The last one from now on"));
}

void OccurrenceActions::removeFrom(const TaskOccurrence &occurrence)
{
    if (isFirst(occurrence)) return m_common.remove({occurrence.taskID});
    m_common.report(m_occurrences.endBefore(occurrence), {occurrence.taskID},
                    tr("This and the later ones removed"));
}
