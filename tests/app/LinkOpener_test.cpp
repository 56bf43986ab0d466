#include "app/LinkOpener.h"

#include "model/records/KWProject.h"
#include "model/records/KWTask.h"
#include "support/CaseTable.h"
#include "support/TaskBuilder.h"
#include "support/TestMain.h"

using namespace Qt::StringLiterals;

namespace {

struct RecordingTarget final : LinkTarget {
    void showList(const KWListIdentifier &list) override { shown << u"list "_s + list.userDefaultEncode(); }
    void showTask(const QString &taskID, const KWListIdentifier &list) override
    {
        shown << u"task %1 in %2"_s.arg(taskID, list.userDefaultEncode());
    }
    void showMessage(const QString &sentence) override { shown << sentence; }
    QStringList shown;
};

} // namespace

class LinkOpener_test : public QObject {
    Q_OBJECT

    StoreFixture m_store;
    RecordingTarget m_target;
    std::optional<LinkOpener> m_links;

    QString task(const QString &id, const QString &listID, void (*edit)(KWTaskModel &))
    {
        KWTaskModel model = aTask("Repot the fig").in(listID).model();
        model.sid = id;
        model.userID = m_store.userID();
        edit(model);
        saved(m_store, [&model](ObjectContext &context) { context.insert<KWTask>(model); });
        return id;
    }
    void list(const QString &id, bool closed)
    {
        KWProjectModel model;
        model.sid = id;
        model.userID = m_store.userID();
        model.closed = closed;
        saved(m_store, [&model](ObjectContext &context) { context.insert<KWProject>(model); });
    }

private Q_SLOTS:
    void initTestCase()
    {
        list(u"list"_s, false);
        list(u"closed"_s, true);
        task(u"task"_s, u"list"_s, [](KWTaskModel &) {});
        task(u"done"_s, u"list"_s, [](KWTaskModel &each) { each.status = KWTaskStatusCompleted; });
        task(u"dropped"_s, u"list"_s, [](KWTaskModel &each) { each.status = KWTaskStatusAbandoned; });
        task(u"thrown"_s, u"list"_s, [](KWTaskModel &each) { each.isTrashed = true; });
        task(u"deleted"_s, u"list"_s, [](KWTaskModel &each) { each.isDeleted = true; });
        task(u"shelved"_s, u"closed"_s, [](KWTaskModel &) {});
        m_links.emplace(m_store.kit().manager(), m_store.account(), m_store.kit().center(), m_target);
    }
    void init() { m_target.shown.clear(); }

    void opens_data() { addCaseRows("app/links.txt", 2); }
    void opens()
    {
        QFETCH(QStringList, cells);
        m_links->open(cells.at(0));
        QCOMPARE(m_target.shown.size(), 1);
        QString shown = m_target.shown.constFirst();
        shown.replace(KWProject::inboxIDOfUser(m_store.userID()), u"inbox"_s);
        QVERIFY2(shown.contains(cells.at(1)), qUtf8Printable(shown));
    }

    void waitsForSomebodyToSignIn()
    {
        QVERIFY(m_store.account().signOut());
        m_links->open(u"orvane://task/task"_s);
        QCOMPARE(m_target.shown, QStringList{});
        QVERIFY(m_store.account().signInLocally(QLocale::c()));
        QCOMPARE(m_target.shown, QStringList{u"task task in 1:list"_s});
    }
};

ORVANE_TEST(LinkOpener_test)
#include "LinkOpener_test.moc"
