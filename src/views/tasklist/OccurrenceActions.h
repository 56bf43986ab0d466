#pragma once

#include "model/store/TaskOccurrences.h"

#include <QObject>

class BatchActions;
class QMenu;

/// What can be done to single occurrences of a repeating task, whoever asks. Each is one save, told with what
/// takes it back. Main thread.
class OccurrenceActions : public QObject {
    Q_OBJECT

public:
    /// Both outlive it.
    OccurrenceActions(KWCoreDataManager &manager, BatchActions &common);

    /// Whether the task is open and repeats.
    static bool haveSome(const KWTaskModel &task);
    /// Offers all of it in a menu of its own.
    void addTo(QMenu &menu, const TaskOccurrence &occurrence);

    void skip(const TaskOccurrence &occurrence);
    /// Answers with the task that stands there then; nothing where it could not be done, which is told.
    std::optional<QString> close(const TaskOccurrence &occurrence, KWTaskStatus status);
    void part(const TaskOccurrence &occurrence, OccurrenceScope scope);
    /// Likewise; `message` tells of it.
    std::optional<QString> move(const TaskOccurrence &occurrence, OccurrenceScope scope,
                                const TaskOccurrences::Dates &to, const QString &message);
    void endWith(const TaskOccurrence &occurrence);
    /// It and the later ones go; with the first one that is the task.
    void removeFrom(const TaskOccurrence &occurrence);

    /// Whether it is the task's own date, with which all are the same as this and the later ones.
    bool isFirst(const TaskOccurrence &occurrence) const;
    /// Asks there which occurrences a change is for; no answer when the menu, which is deleted then, is
    /// closed.
    QMenu &askScope(const TaskOccurrence &occurrence, const QPoint &position,
                    const std::function<void(OccurrenceScope)> &chosen);

private:
    std::optional<QString> report(const Result<TaskOccurrences::Changed> &done, const QString &message);

    KWCoreDataManager &m_manager;
    BatchActions &m_common;
    TaskOccurrences m_occurrences;
};
