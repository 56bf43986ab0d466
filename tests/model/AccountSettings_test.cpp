#include "model/account/AccountSettings.h"

#include "model/account/KWPublicUserProfileManager.h"
#include "model/events/NotificationNames.h"
#include "model/records/KWListDisplayConfiguration.h"
#include "model/records/KWProject.h"
#include "model/records/KWSmartProject.h"
#include "model/records/KWSmartProjectSetting.h"
#include "model/records/KWTeamworker.h"
#include "model/settings/KWListDisplayConfigurationManager.h"
#include "support/TaskBuilder.h"
#include "support/TestMain.h"

using namespace Qt::StringLiterals;

class AccountSettings_test : public QObject {
    Q_OBJECT

    std::unique_ptr<StoreFixture> m_store;
    std::unique_ptr<AccountSettings> m_settings;
    QStringList m_posted;
    KWNotificationCenter::Observation m_observation;

    /// What was posted since the last call.
    QString posted() { return std::exchange(m_posted, {}).join(u' '); }

    /// Deletes those records, which the service knows.
    template <class Record>
    void deleteAll()
    {
        saved(*m_store, [](ObjectContext &context) {
            for (Record *each : context.fetch<Record>({})) {
                each->set(&KWSynchronizableFields::etag, u"1"_s);
                each->markDone();
                each->markDelete();
            }
        });
    }
    /// Of the one record of its kind, which is not deleted and still the one that the service knows.
    template <class Record>
    KWSyncStatus syncStatus()
    {
        const auto all = m_store->context().models<Record>({});
        if (all.size() != 1 || all.first().isDeleted || all.first().etag != u"1")
            qFatal("It did not come back");
        return all.first().syncStatus;
    }

private Q_SLOTS:
    void init()
    {
        m_store = std::make_unique<StoreFixture>();
        OrvaneKit &kit = m_store->kit();
        m_settings = std::make_unique<AccountSettings>(kit.manager(), kit.center(), m_store->userID());
        m_observation =
            kit.center().addObserver([this](const KWNotification &each) { m_posted << each.name; });
        m_posted.clear();
    }

    void savesWhatCanBeAndAnnouncesIt()
    {
        const auto with = [this](auto KWUserSettingsModel::*field, auto value) {
            return bool(m_settings->change([&](KWUserSettingsModel &settings) { settings.*field = value; }));
        };
        const auto &stored = [this]() -> const KWUserSettingsModel & {
            return m_store->account().userSettings();
        };
        const QString home = m_store->makeList(u"Home"_s);
        QVERIFY(with(&KWUserSettingsModel::firstWeekday, 7));
        QVERIFY(m_settings->updateTimeZoneOptionEnable(true));
        QCOMPARE(m_posted.count(KWUserSettingsDidChangeNotification), 2);
        posted();
        QVERIFY(with(&KWUserSettingsModel::showCompleted, false));
        QCOMPARE(posted(), KWUserSettingsDidChangeNotification);
        QVERIFY(stored().firstWeekday == 7 && stored().isTimeZoneOptionEnabled);
        QVERIFY(with(&KWUserSettingsModel::defaultListID, home));
        QCOMPARE(m_posted.last(), KWTaskDefaultConfigurationChangedNotification);
        QCOMPARE(m_store->account().defaultAddtoList(), home);

        const KWUserSettingsModel before = stored();
        posted();
        for (const int each : {0, 8})
            QVERIFY(!with(&KWUserSettingsModel::firstWeekday, each));
        for (const int each : {-1, 24 * 60})
            QVERIFY(!with(&KWUserSettingsModel::smartTimeForNight, each));
        const QString closed = m_store->makeList(u"Closed"_s);
        setSaved<KWProject>(*m_store, closed, &KWProjectModel::closed, true);
        for (const QString &each : {closed, u"gone"_s})
            QVERIFY(!with(&KWUserSettingsModel::defaultListID, each));
        QVERIFY(stored() == before);
        QCOMPARE(posted(), QString{});
    }

    void keepsHowSmartListsAreShown()
    {
        const auto sortType = [this](const KWSmartProject &list) {
            return KWSmartProject::sortTypeWithSmartProjectID(list.identifier(), m_store->userID(),
                                                              m_store->context());
        };
        const auto visibility = [this](const KWSmartProject &list) {
            return list.visibilityOfUser(m_store->userID(), m_store->context());
        };
        QCOMPARE(visibility(KWSmartProject::abandoned()), KWSmartProjectVisibilityHidden);
        QVERIFY(m_settings->setVisibility(KWSmartProjectVisibilityShown, KWSmartProject::abandoned()));
        QCOMPARE(posted(), KWSmartListDisplayStatusDidChangeNotification);
        QVERIFY(m_settings->setSortType(KWTaskSortTypeTitle, KWSmartProject::abandoned()));
        QCOMPARE(posted(), KWListDisplayConfigurationDidChangeNotification);
        QCOMPARE(visibility(KWSmartProject::abandoned()), KWSmartProjectVisibilityShown);
        QCOMPARE(sortType(KWSmartProject::abandoned()), KWTaskSortTypeTitle);
        QCOMPARE(sortType(KWSmartProject::today()), KWTaskSortTypeDate);

        deleteAll<KWSmartProjectSetting>();
        QCOMPARE(visibility(KWSmartProject::abandoned()), KWSmartProjectVisibilityHidden);
        QCOMPARE(sortType(KWSmartProject::abandoned()), KWTaskSortTypeCompletionDate);
        QVERIFY(m_settings->setVisibility(KWSmartProjectVisibilityShown, KWSmartProject::abandoned()));
        QCOMPARE(visibility(KWSmartProject::abandoned()), KWSmartProjectVisibilityShown);
        QCOMPARE(sortType(KWSmartProject::abandoned()), KWTaskSortTypeCompletionDate); // as it comes
        QCOMPARE(syncStatus<KWSmartProjectSetting>(), KWSyncStatusUpdated);
    }

    void keepsHowListsAreShown()
    {
        KWListDisplayConfigurationManager lists{m_store->kit().manager(), m_store->kit().center(),
                                                m_store->userID()};
        const auto today = KWListIdentifier::todayProject();
        for (const QString &folded : {u"late"_s, u"done"_s}) {
            KWListDisplayConfigurationModel shown = lists.configuration(today);
            QVERIFY(shown.collapsedGroups != QStringList{folded});
            shown.collapsedGroups = {folded};
            QVERIFY(lists.save(shown));
            QVERIFY(lists.configuration(today).collapsedGroups == QStringList{folded});
            QCOMPARE(posted(), KWListDisplayConfigurationDidChangeNotification);
        }
        QVERIFY(lists.configuration(KWListIdentifier::tag(u"a"_s)).collapsedGroups.isEmpty());

        deleteAll<KWListDisplayConfiguration>();
        QVERIFY(lists.configuration(today).collapsedGroups.isEmpty());
        QVERIFY(lists.save(lists.configuration(today)));
        QCOMPARE(syncStatus<KWListDisplayConfiguration>(), KWSyncStatusUpdated);
    }

    void keepsWhatNewTasksGet()
    {
        KWTaskDefaultConfiguration chosen = m_store->account().taskDefaultConfiguration();
        chosen.priority = KWTaskPriorityHigh;
        chosen.dateOffset = std::chrono::days{2};
        chosen.allDayReminders = {CXAlarmTrigger::triggerWithRepresentation(u"TRIGGER:P0DT9H0M0S"_s, true)};
        OrvaneKit &kit = m_store->kit();
        QVERIFY(KWTaskDefaultConfigurationManager::save(chosen, m_store->userID(), kit.manager(),
                                                        kit.defaults(), kit.center()));
        QCOMPARE(posted(), KWTaskDefaultConfigurationChangedNotification);
        QVERIFY(m_store->account().taskDefaultConfiguration() == chosen);
        QVERIFY(!KWTaskDefaultConfigurationManager::save({}, u"nobody"_s, kit.manager(), kit.defaults(),
                                                         kit.center()));
        QVERIFY(m_store->account().taskDefaultConfiguration() == chosen);
    }

    void knowsThePeopleOfSharedLists()
    {
        KWPublicUserProfileManager people{m_store->kit().manager(), m_store->userID()};
        QVERIFY(!people.profile(7));
        saved(*m_store, [this](ObjectContext &context) {
            KWTeamworkerModel member;
            member.userID = m_store->userID();
            member.userServerID = 7;
            member.name = u"Seven"_s;
            context.insert<KWTeamworker>(member);
        });
        QCOMPARE(people.profile(7)->name, u"Seven"_s);
    }
};

ORVANE_TEST(AccountSettings_test)
#include "AccountSettings_test.moc"
