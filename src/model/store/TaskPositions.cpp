#include "model/store/TaskPositions.h"

#include "model/records/KWSortOrderResetable.h"
#include "model/store/KWCoreDataManager.h"
#include "model/store/PositionKind.h"

#include <QHash>
#include <QSet>

#include <numeric>

namespace {

template <class Record>
QList<Record *> recordsOf(const QString &contextID, ObjectContext &context)
{
    return context.fetch<Record>(
        {.where = "contextID = ? AND isDeleted = 0", .values = {contextID}, .orderBy = "id"});
}

template <class Kind>
class Run {
    using Record = typename Kind::Record;

public:
    Run(const PositionGroup &group, const QString &userID, ObjectContext &context)
        : m_group(group), m_userID(userID), m_context(context)
    {
        for (Record *each : recordsOf<Record>(group.contextID, context))
            if (Kind::groupOf(each->model()) == group.group) m_records.insert((*each)->taskID, each);
    }

    void arrange(const QStringList &inOrder, const QSet<QString> &moved)
    {
        qsizetype end = inOrder.size(); // of those that get a position
        while (end > 0 && !moved.contains(inOrder.at(end - 1)))
            --end;
        QList<Record *> run;
        for (qsizetype i = 0; i < inOrder.size(); ++i) {
            const QString &task = inOrder.at(i);
            if (i >= end && !m_records.contains(task)) continue;
            Record &record = recordOf(task);
            if (moved.contains(task))
                KWEntitySortOrder::update(record, between(run, orderBelow(i, inOrder, moved)));
            else if (record.isInserted())
                KWEntitySortOrder::update(record, between(run, std::nullopt));
            run.append(&record);
        }
        if (!run.isEmpty()) resetSortOrderIfNeeded(run);
    }

private:
    Record &recordOf(const QString &task)
    {
        Record *&record = m_records[task];
        if (record) return *record;
        typename Record::Model model;
        model.userID = m_userID;
        model.contextID = m_group.contextID;
        model.taskID = task;
        Kind::setGroup(model, m_group.group);
        record = &m_context.insert<Record>(std::move(model));
        return *record;
    }

    // Of the first below that has a position and stays.
    std::optional<std::int64_t> orderBelow(qsizetype place, const QStringList &inOrder,
                                           const QSet<QString> &moved) const
    {
        for (qsizetype i = place + 1; i < inOrder.size(); ++i)
            if (const Record *record = m_records.value(inOrder.at(i));
                record && !moved.contains(inOrder.at(i)))
                return (*record)->sortOrder;
        return std::nullopt;
    }

    static std::int64_t between(const QList<Record *> &above, std::optional<std::int64_t> next)
    {
        if (above.isEmpty()) return next ? *next - KWSortOrderStep : 0;
        const std::int64_t last = above.last()->model().sortOrder;
        return next ? std::midpoint(last, *next) : last + KWSortOrderStep;
    }

    const PositionGroup &m_group;
    const QString &m_userID;
    ObjectContext &m_context;
    QHash<QString, Record *> m_records; // by their tasks
};

} // namespace

void arrange(const QStringList &inOrder, const QStringList &moved, const PositionGroup &group,
             const QString &userID, ObjectContext &context)
{
    visitPositionKind(group.sortType, [&]<class Kind>(Kind) {
        Run<Kind>{group, userID, context}.arrange(inOrder, {moved.begin(), moved.end()});
    });
}

Result<UndoToken> removePositions(const QString &contextID, KWTaskSortType sortType,
                                  KWCoreDataManager &manager)
{
    UndoToken token;
    const auto saved = KWCoreDataService{manager}.sync_save([&](ObjectContext &context) {
        visitPositionKind(sortType, [&]<class Kind>(Kind) {
            for (auto *each : recordsOf<typename Kind::Record>(contextID, context))
                each->deleteForever();
        });
        token = UndoToken::of(context);
        return Result<void>{};
    });
    if (!saved) return saved.error();
    return token;
}
