#include "model/records/KWProject.h"
#include "model/records/KWTag.h"
#include "model/records/KWTask.h"
#include "model/store/Connection.h"
#include "model/store/KWListDataFetcher.h"
#include "model/store/KWTagService.h"
#include "model/store/KWTaskFinder.h"
#include "support/TaskBuilder.h"
#include "support/TestMain.h"

#include <sqlite3.h>

using namespace Qt::StringLiterals;

namespace {

/// Notes the statements that a connection runs.
class StatementRecorder {
public:
    explicit StatementRecorder(Connection &connection) : m_connection(connection)
    {
        sqlite3_trace_v2(handle(), SQLITE_TRACE_STMT, &StatementRecorder::note, &m_statements);
    }
    ~StatementRecorder() { sqlite3_trace_v2(handle(), 0, nullptr, nullptr); }
    StatementRecorder(const StatementRecorder &) = delete;
    StatementRecorder &operator=(const StatementRecorder &) = delete;

    /// The steps of their plans.
    QStringList plans()
    {
        QStringList steps;
        for (const QByteArray &each : QList<QByteArray>{m_statements})
            if (each.startsWith("SELECT")) steps << planOf(each);
        return steps;
    }

private:
    static int note(unsigned, void *statements, void *statement, void *)
    {
        static_cast<QList<QByteArray> *>(statements)
            ->append(sqlite3_sql(static_cast<sqlite3_stmt *>(statement)));
        return 0;
    }
    sqlite3 *handle() { return m_connection.database().getHandle(); }
    QStringList planOf(const QByteArray &sql)
    {
        QStringList steps;
        SQLite::Statement plan{m_connection.database(), "EXPLAIN QUERY PLAN " + sql.toStdString()};
        while (plan.executeStep())
            steps << QString::fromUtf8(plan.getColumn(3).getText());
        return steps;
    }

    Connection &m_connection;
    QList<QByteArray> m_statements;
};

// The one that the next save works on.
Connection &connectionLyingReady(Store &store)
{
    Result<Store::Loan> loan = store.borrowConnection();
    if (!loan) qFatal("The store cannot be opened");
    return **loan;
}

} // namespace

/// A long list and many years of closed tasks cost nothing where they are not asked for.
class QueryPlans_test : public QObject {
    Q_OBJECT

    using Operation = std::function<void(StoreFixture &, ObjectContext &)>;

private Q_SLOTS:
    void walksTheIndexMadeForIt_data()
    {
        QTest::addColumn<Operation>("operation");
        QTest::addColumn<QString>("index");
        const auto row = [](const char *name, const char *index, const Operation &operation) {
            QTest::newRow(name) << operation << QString::fromLatin1(index);
        };
        const auto inbox = [](StoreFixture &store, ObjectContext &context) -> KWProject & {
            return *KWProject::findInboxOfUser(store.userID(), context);
        };
        row("tasks of a list", "openTasksByList",
            [inbox](auto &store, auto &context) { inbox(store, context).orderedTasks(); });
        row("number of a list", "openTasksByList",
            [inbox](auto &store, auto &context) { inbox(store, context).numberOfUncompletedTasks(); });
        row("found in a list", "openTasksByList", [](auto &store, auto &context) {
            KWTaskFinder::findAllTasksInProject(u"list"_s, {store.userID()}, {}, context);
        });
        row("repeating", "repeatingTasks", [](auto &store, auto &context) {
            KWTaskFinder::findAllTasksWillRepeatOfUser({store.userID()}, {}, context);
        });
        row("repeating of a list", "repeatingTasks (projectID=?)", [](auto &store, auto &context) {
            KWTaskFinder::findAllTasksWillRepeatOfUser({store.userID()}, u"list"_s, context);
        });
        row("completed without a date", "closedTasksInOrder (<expr>>? AND <expr><?)",
            [](auto &store, auto &context) {
                KWTaskFinder::fetchCompletedAndNoDateBetween(Instant{}, store.clock.now(), {store.userID()},
                                                             context);
            });
        row("a page of completed tasks", "closedTasksInOrder (<expr><?)", [](auto &store, auto &context) {
            QVERIFY(KWListDataFetcher{store.clock}.completedTasks(
                {.userID = store.userID(), .after = CompletionCursor{Instant{}, 1}, .limit = 50},
                context.connection()));
        });
        row("positions in the group of a tag", "taskTagSortOrdersByTag (tagName=?)", [](auto &store, auto &) {
            KWTagService tags{store.kit().manager(), store.userID()};
            QVERIFY(tags.create({u"one"_s}) && tags.remove(u"one"_s));
        });
        row("the pinned place of a list", "projectPinnedSortOrdersByList (userID=? AND listID=?)",
            [](auto &store, auto &) {
                KWTagService tags{store.kit().manager(), store.userID()};
                QVERIFY(tags.create({u"one"_s}) && tags.remove(u"one"_s));
            });
    }

    void walksTheIndexMadeForIt()
    {
        QFETCH(const Operation, operation);
        QFETCH(const QString, index);
        StoreFixture store;
        StatementRecorder reads{store.context().connection()};
        StatementRecorder saves{connectionLyingReady(store.kit().store())};
        operation(store, store.context());
        const QStringList plans = reads.plans() + saves.plans();
        const auto walks = [&index](const QString &step) {
            return step.contains(u"INDEX "_s + index) &&
                   (index.contains(u' ') || step.endsWith(index) || step.contains(index + u' '));
        };
        QVERIFY2(std::ranges::any_of(plans, walks), qPrintable(plans.join(u'\n')));
        for (const QString &each : plans)
            QVERIFY2(each != u"SCAN tasks", qPrintable(plans.join(u'\n')));
    }
};

ORVANE_TEST(QueryPlans_test)
#include "QueryPlans_test.moc"
