#pragma once

#include "capture/NewTaskDraft.h"
#include "corvexkit/Result.h"
#include "model/records/KWProject.h"

#include <QHash>
#include <QList>
#include <QSet>

/// Puts tasks, with the tags and lists that are missing, into a context that is saved afterwards.
class NewTaskWriter {
public:
    NewTaskWriter(ObjectContext &context, ListEnd end) : m_context(context), m_end(end) {}

    /// Stands in the order of the drafts at that end of each list. Where the list of one is gone, archived or
    /// may only be read, it goes to the inbox; without an inbox there is an error.
    Result<QList<KWTaskModel>> write(const QList<NewTaskDraft> &drafts);

private:
    Result<KWTaskModel> prepared(const NewTaskDraft &draft);
    KWProject *projectFor(const NewTaskDraft &draft);
    KWProject *listNamed(const QString &name, const QString &userID);
    void makeTags(const NewTaskDraft &draft);
    void place(QList<KWTaskModel> &tasks);
    std::int64_t nextOrderIn(const QString &projectID);

    ObjectContext &m_context;
    ListEnd m_end;
    QHash<QString, KWProject *> m_lists;      // by name as typed
    QHash<QString, std::int64_t> m_lastOrder; // by list id
    QSet<QString> m_tags;                     // names that are there by now
};
