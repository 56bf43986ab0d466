#include "model/account/KWAccountManager.h"

#include "model/events/NotificationNames.h"
#include "model/records/KWProject.h"
#include "model/records/KWUser.h"
#include "model/records/KWUserSettings.h"
#include "model/store/Connection.h"
#include "support/Answers.h"
#include "support/TaskBuilder.h"
#include "support/TestMain.h"

#include <QTemporaryDir>

using namespace Qt::StringLiterals;

class KWAccountManager_test : public QObject {
    Q_OBJECT

    std::unique_ptr<StoreFixture> m_store;
    QStringList m_posted;
    KWNotificationCenter::Observation m_observation;

    KWAccountManager &account() { return m_store->account(); }

private Q_SLOTS:
    void init()
    {
        m_observation = {};
        m_store = std::make_unique<StoreFixture>();
        m_posted.clear();
        m_observation = m_store->kit().center().addObserver(
            [this](const KWNotification &notification) { m_posted << notification.name; });
    }

    void makesAnAccountWithWhatItBeginsWithOrNotAtAll()
    {
        const QTemporaryDir folder;
        const auto opening = OrvaneKit::open(DataFolders::locate(folder.path()), m_store->kit().clock());
        KWAccountManager &fresh = opening.kit->account();
        const auto refuse = [](const QString &, ObjectContext &) -> Result<void> { return Error{u"No."_s}; };
        QVERIFY(!fresh.openLocalAccount(QLocale::c(), refuse) && !fresh.isSignedIn());
        QCOMPARE(opening.kit->context().number("SELECT count(*) FROM users"), 0);
    }

    void keepsTheOneLocalAccountThroughSignOutAndIn()
    {
        const QString user = account().currentUserID();
        const KWProject *inbox = KWProject::findInboxOfUser(user, m_store->context());
        QVERIFY(inbox && (*inbox)->userID == user);
        aTask("Pay rent").savedIn(*m_store);
        setSaved<KWUserSettings>(*m_store, user, &KWUserSettingsModel::smartTimeForNight, 1233);
        QVERIFY(account().signOut() && !account().isSignedIn());
        QCOMPARE(account().userSettings(), KWUserSettingsModel{});
        m_store->reopen();
        QVERIFY(!account().isSignedIn() && account().workWithLocalAccount());
        QCOMPARE(account().currentUserID(), user);
        account().refreshCurrentUser();
        QCOMPARE(account().currentUserID(), QString{});

        m_observation = m_store->kit().center().addObserver(
            [this](const KWNotification &notification) { m_posted << notification.name; });
        QVERIFY(account().signInLocally(QLocale::c()) && account().openLocalAccount(QLocale::c()));
        QCOMPARE(m_posted, QStringList({KWUserDidSignOutNotification, KWUserDidSignInNotification}));
        QCOMPARE(account().currentUserID(), user);
        QCOMPARE(account().userSettings().smartTimeForNight, 1233);
        for (const char *table : {"users", "userSettings", "projects", "tasks"})
            QCOMPARE(m_store->context().number(("SELECT count(*) FROM "_ba + table).constData()), 1);
    }

    void staysAsItWasWhenNothingCanBeSaved()
    {
        (*m_store->kit().store().borrowConnection())->execute("PRAGMA query_only = 1");
        QVERIFY(isRefused(account().signOut()) && account().isSignedIn() && m_posted.isEmpty());
    }

    void takesTheFirstWeekdayOfTheLocale()
    {
        for (const auto &[locale, weekday] : {std::pair{"en_US", 1}, {"de_DE", 2}, {"ar_EG", 7}}) {
            saved(*m_store, [](ObjectContext &context) {
                for (KWUser *each : context.fetch<KWUser>({}))
                    each->markDelete();
            });
            m_store->clock.advance(std::chrono::seconds{1});
            QVERIFY(account().openLocalAccount(QLocale{QString::fromLatin1(locale)}));
            QCOMPARE(account().userSettings().firstWeekday, weekday);
        }
    }

    void findsListsByTheirNames()
    {
        const QString home = m_store->makeList(u"Home  Office"_s);
        setSaved<KWProject>(*m_store, m_store->makeList(u"Old"_s), &KWProjectModel::closed, true);
        const auto named = [this](const QString &name) {
            const KWProject *found = KWProject::findProjectNamed(name, m_store->userID(), m_store->context());
            return found ? found->sid() : QString{};
        };
        QCOMPARE(named(u"HOMEoffice"_s), home);
        QCOMPARE(named(u"inbox"_s), KWProject::inboxIDOfUser(m_store->userID()));
        QCOMPARE(named(u"Old"_s) + named(u"Home"_s), QString{});
    }
};

ORVANE_TEST(KWAccountManager_test)
#include "KWAccountManager_test.moc"
