#include "model/account/KWAccountManager.h"

#include "model/events/NotificationNames.h"
#include "model/records/KWProject.h"
#include "model/records/KWSmartProject.h"
#include "model/records/KWUser.h"
#include "model/records/KWUserSettings.h"
#include "model/store/Connection.h"
#include "model/store/KWProjectListCountFetcher.h"
#include "support/TaskBuilder.h"
#include "support/TestMain.h"

using namespace Qt::StringLiterals;

class KWAccountManager_test : public QObject {
    Q_OBJECT

    std::unique_ptr<StoreFixture> m_store;
    QStringList m_posted;
    KWNotificationCenter::Observation m_observation;

    KWAccountManager &account() { return m_store->account(); }
    std::int64_t count(const char *table)
    {
        return m_store->context().number(("SELECT count(*) FROM "_ba + table).constData());
    }

private Q_SLOTS:
    void init();
    void makesTheLocalAccountOnce();
    void keepsEverythingThroughSignOutAndIn();
    void staysAsItWasWhenNothingCanBeSaved();
    void takesTheFirstWeekdayOfTheLocale_data();
    void takesTheFirstWeekdayOfTheLocale();
    void addsToTheChosenListWhileItCanBeUsed();
    void findsListsByTheirNames();
    void countsInTheBackground();
    void joinsCountsAndForgetsThoseOfAnotherAccount();
};

void KWAccountManager_test::init()
{
    m_observation = {};
    m_store = std::make_unique<StoreFixture>();
    m_posted.clear();
    m_observation = m_store->kit().center().addObserver(
        [this](const KWNotification &notification) { m_posted << notification.name; });
}

void KWAccountManager_test::makesTheLocalAccountOnce()
{
    QVERIFY(account().isSignedIn());
    const QString user = account().currentUserID();
    QVERIFY(!user.isEmpty());
    QVERIFY(m_store->context().find<KWUser>(user)->isLocal());
    const KWProject *inbox = KWProject::findInboxOfUser(user, m_store->context());
    QVERIFY(inbox && inbox->isInbox());
    QCOMPARE((*inbox)->userID, user);
    QCOMPARE(account().userSettings().userID, user);

    QVERIFY(account().signInLocally(QLocale::c()));
    m_store->reopen();
    QVERIFY(account().isSignedIn());
    QVERIFY(account().openLocalAccount(QLocale::c()));
    QCOMPARE(account().currentUserID(), user);
    QCOMPARE(count("users"), 1);
    QCOMPARE(count("userSettings"), 1);
    QCOMPARE(count("projects"), 1);
    QCOMPARE(m_posted, QStringList{KWUserDidSignInNotification});
}

void KWAccountManager_test::keepsEverythingThroughSignOutAndIn()
{
    const QString user = account().currentUserID();
    const QString task = aTask("Pay rent").savedIn(*m_store);
    saved(*m_store, [&](ObjectContext &context) {
        context.find<KWUserSettings>(user)->set(&KWUserSettingsModel::smartTimeForNight, 1200 + 33);
    });
    QVERIFY(account().signOut());
    QVERIFY(!account().isSignedIn());
    QCOMPARE(account().currentUserID(), QString{});
    QCOMPARE(account().userSettings(), KWUserSettingsModel{});
    m_store->reopen();
    QVERIFY(!account().isSignedIn());

    QVERIFY(account().signInLocally(QLocale::c()));
    QCOMPARE(account().currentUserID(), user);
    QCOMPARE(account().userSettings().smartTimeForNight, 1233);
    QCOMPARE(count("tasks"), 1);
    QCOMPARE(m_posted, QStringList{KWUserDidSignOutNotification}); // the other came from the reopened one
}

void KWAccountManager_test::staysAsItWasWhenNothingCanBeSaved()
{
    {
        auto lent = m_store->kit().store().borrowConnection();
        QVERIFY(lent);
        (*lent)->execute("PRAGMA query_only = 1");
    }
    const Result<void> refused = account().signOut();
    QVERIFY(!refused && refused.error().sentence.endsWith(u'.'));
    QVERIFY(account().isSignedIn());
    QVERIFY(m_posted.isEmpty());
}

void KWAccountManager_test::takesTheFirstWeekdayOfTheLocale_data()
{
    QTest::addColumn<QLocale>("locale");
    QTest::addColumn<int>("weekday"); // 1 Sunday … 7 Saturday
    QTest::newRow("United States") << QLocale{u"en_US"_s} << 1;
    QTest::newRow("Germany") << QLocale{u"de_DE"_s} << 2;
    QTest::newRow("Egypt") << QLocale{u"ar_EG"_s} << 7;
}

void KWAccountManager_test::takesTheFirstWeekdayOfTheLocale()
{
    QFETCH(const QLocale, locale);
    saved(*m_store, [](ObjectContext &context) {
        for (KWUser *each : context.fetch<KWUser>({}))
            each->markDelete();
    });
    m_store->clock.advance(std::chrono::seconds{1});
    QVERIFY(account().openLocalAccount(locale));
    QTEST(account().userSettings().firstWeekday, "weekday");
}

void KWAccountManager_test::addsToTheChosenListWhileItCanBeUsed()
{
    const QString inbox = KWProject::inboxIDOfUser(m_store->userID());
    const QString home = m_store->makeList(u"Home"_s);
    QCOMPARE(account().defaultAddtoList(), inbox);
    const auto choose = [this](const QString &list) {
        saved(*m_store, [&](ObjectContext &context) {
            context.find<KWUserSettings>(m_store->userID())->set(&KWUserSettingsModel::defaultListID, list);
        });
    };
    choose(home);
    QCOMPARE(account().defaultAddtoList(), home);
    choose(u"no such list"_s);
    QCOMPARE(account().defaultAddtoList(), inbox);
    choose(home);
    const auto whileChanged = [&](auto member, auto value, auto before) {
        const auto set = [&](auto to) {
            saved(*m_store, [&](ObjectContext &context) { context.find<KWProject>(home)->set(member, to); });
        };
        set(value);
        const QString list = account().defaultAddtoList();
        set(before);
        return list;
    };
    QCOMPARE(whileChanged(&KWProjectModel::closed, true, false), inbox);
    QCOMPARE(whileChanged(&KWProjectModel::permission, KWProjectPermissionRead, KWProjectPermissionWrite),
             inbox);
    QCOMPARE(whileChanged(&KWProjectModel::isDeleted, true, false), inbox);
    QCOMPARE(account().defaultAddtoList(), home);
}

void KWAccountManager_test::findsListsByTheirNames()
{
    const QString home = m_store->makeList(u"Home  Office"_s);
    const QString closed = m_store->makeList(u"Old"_s);
    saved(*m_store, [&](ObjectContext &context) {
        context.find<KWProject>(closed)->set(&KWProjectModel::closed, true);
    });
    const auto named = [this](const QString &name) {
        const KWProject *found = KWProject::findProjectNamed(name, m_store->userID(), m_store->context());
        return found ? found->sid() : QString{};
    };
    QCOMPARE(named(u"home office"_s), home);
    QCOMPARE(named(u"HOMEOFFICE"_s), home);
    QCOMPARE(named(u"inbox"_s), KWProject::inboxIDOfUser(m_store->userID()));
    QCOMPARE(named(u"Old"_s), QString{});
    QCOMPARE(named(u"Home"_s), QString{});

    QStringList ids;
    for (const KWProject *each :
         KWProject::findProjectsOfUser(m_store->userID(), ProjectScope::OpenAndClosed, m_store->context()))
        ids << each->sid();
    QCOMPARE(ids, QStringList({KWProject::inboxIDOfUser(m_store->userID()), home, closed}));
    saved(*m_store, [this](ObjectContext &context) {
        KWProject &one = KWProject::createProjectNamed(u"One"_s, m_store->userID(), context);
        KWProject &two = KWProject::createProjectNamed(u"Two"_s, m_store->userID(), context);
        QVERIFY(one->sortOrder < two->sortOrder);
    });
}

void KWAccountManager_test::countsInTheBackground()
{
    KWProjectListCountFetcher counts{m_store->kit().manager(), m_store->kit().center()};
    const auto today = KWListIdentifier::todayProject();
    const auto completed = KWListIdentifier::smartProject(KWSmartProject::completed().identifier());
    aTask("Pay rent").dueOn("2030-05-01").savedIn(*m_store);
    QVERIFY(!counts.countCached(today));
    counts.updateCountCache(m_store->userID(), {today, completed});
    QVERIFY(!counts.countCached(today));
    QTRY_COMPARE(m_posted, QStringList{countChanged});
    QCOMPARE(counts.countCached(today), std::optional{1});
    QVERIFY(!counts.countCached(completed));

    m_store->clock.advance(std::chrono::hours{24});
    aTask("Buy milk").dueOn("2030-05-02").savedIn(*m_store);
    QCOMPARE(counts.countCached(today), std::optional{1}); // until it is asked for again
    counts.updateCountCache(m_store->userID(), {today});
    QTRY_COMPARE(counts.countCached(today), std::optional{2});
}

void KWAccountManager_test::joinsCountsAndForgetsThoseOfAnotherAccount()
{
    KWProjectListCountFetcher counts{m_store->kit().manager(), m_store->kit().center()};
    const auto today = KWListIdentifier::todayProject();
    aTask("Pay rent").dueOn("2030-05-01").savedIn(*m_store);
    for (int i = 0; i < 5; ++i)
        counts.updateCountCache(m_store->userID(), {today});
    QTRY_COMPARE(m_posted.size(), 2); // the one that runs, and one for all that came meanwhile
    QCOMPARE(counts.countCached(today), std::optional{1});

    counts.updateCountCache(m_store->userID(), {today});
    counts.clear();
    counts.updateCountCache(u"another"_s, {today});
    QVERIFY(!counts.countCached(today));
    QTRY_COMPARE(m_posted.size(), 3);
    QCOMPARE(counts.countCached(today), std::optional{0});
}

ORVANE_TEST(KWAccountManager_test)
#include "KWAccountManager_test.moc"
