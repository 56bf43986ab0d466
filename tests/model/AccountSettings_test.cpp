#include "model/account/AccountSettings.h"

#include "model/events/NotificationNames.h"
#include "model/records/KWCalendarDisplayConfiguration.h"
#include "model/records/KWListDisplayConfiguration.h"
#include "model/records/KWPomoSettings.h"
#include "model/records/KWProject.h"
#include "model/records/KWSmartProject.h"
#include "model/records/KWSmartProjectSetting.h"
#include "model/settings/KWCalendarDisplayConfigurationManager.h"
#include "model/settings/KWListDisplayConfigurationManager.h"
#include "model/settings/KWPomoSettingsManager.h"
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

    /// What a person chose lies in one record that the service knows. Once it is deleted, choosing brings
    /// it back, still the one that the service knows.
    template <class Record>
    void comesBack(const std::function<void()> &choose)
    {
        saved(*m_store, [](ObjectContext &context) {
            for (Record *each : context.fetch<Record>({})) {
                each->set(&KWSynchronizableFields::etag, u"1"_s);
                each->markDone();
                each->markDelete();
            }
        });
        choose();
        const auto all = m_store->context().models<Record>({});
        QCOMPARE(all.size(), 1);
        QVERIFY(!all.first().isDeleted && all.first().etag == u"1");
        QCOMPARE(all.first().syncStatus, KWSyncStatusUpdated);
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
        const QString home = m_store->makeList(u"Home"_s);
        const QString both =
            KWUserSettingsDidChangeNotification + u' ' + KWTaskDefaultConfigurationChangedNotification;
        QVERIFY(m_settings->updateTimeZoneOptionEnable(true));
        QCOMPARE(posted(), both);
        QVERIFY(with(&KWUserSettingsModel::showCompleted, false));
        QCOMPARE(posted(), KWUserSettingsDidChangeNotification);
        QVERIFY(with(&KWUserSettingsModel::defaultListID, home));
        QCOMPARE(posted(), both);
        QCOMPARE(m_store->account().defaultAddtoList(), home);
        setSaved<KWProject>(*m_store, home, &KWProjectModel::closed, true);
        QCOMPARE(m_store->account().defaultAddtoList(), KWProject::inboxIDOfUser(m_store->userID()));
        QVERIFY(with(&KWUserSettingsModel::defaultListID, QString{}));

        QVERIFY(with(&KWUserSettingsModel::showsInToday, false));
        QCOMPARE(m_posted.last(), KWHabitSettingsChangedNotification);
        posted();
        const KWUserSettingsModel before = m_store->account().userSettings();
        QVERIFY(before.isTimeZoneOptionEnabled);
        for (const int each : {0, 8})
            QVERIFY(!with(&KWUserSettingsModel::firstWeekday, each));
        for (const int each : {-1, 24 * 60})
            QVERIFY(!with(&KWUserSettingsModel::smartTimeForNight, each));
        for (const QString &each : {home, u"gone"_s})
            QVERIFY(!with(&KWUserSettingsModel::defaultListID, each));
        QVERIFY(m_store->account().userSettings() == before);
        QCOMPARE(posted(), QString{});
    }

    void keepsHowSmartListsAreShown()
    {
        const KWSmartProject &abandoned = KWSmartProject::abandoned();
        const QString user = m_store->userID();
        ObjectContext &context = m_store->context();
        const auto sortType = [&](const KWSmartProject &list) {
            return KWSmartProject::sortTypeWithSmartProjectID(list.identifier(), user, context);
        };
        const auto isShown = [&] {
            return abandoned.visibilityOfUser(user, context) == KWSmartProjectVisibilityShown;
        };
        QVERIFY(m_settings->setVisibility(KWSmartProjectVisibilityShown, abandoned));
        QCOMPARE(posted(), KWSmartListDisplayStatusDidChangeNotification);
        QVERIFY(m_settings->setSortType(KWTaskSortTypeTitle, abandoned));
        QCOMPARE(posted(), KWListDisplayConfigurationDidChangeNotification);
        QCOMPARE(sortType(abandoned), KWTaskSortTypeTitle);
        QCOMPARE(sortType(KWSmartProject::today()), KWTaskSortTypeDate);
        comesBack<KWSmartProjectSetting>([&] {
            QVERIFY(!isShown());
            QVERIFY(m_settings->setVisibility(KWSmartProjectVisibilityShown, abandoned) && isShown());
            QCOMPARE(sortType(abandoned), KWTaskSortTypeCompletionDate); // as it comes
        });
    }

    void keepsHowListsAreShown()
    {
        KWListDisplayConfigurationManager lists{m_store->kit().manager(), m_store->kit().center(),
                                                m_store->userID()};
        const auto today = KWListIdentifier::todayProject();
        for (const QString &folded : {u"late"_s, u"done"_s}) {
            KWListDisplayConfigurationModel shown = lists.configuration(today);
            shown.collapsedGroups = {folded};
            QVERIFY(lists.save(shown));
            QCOMPARE(lists.configuration(today).collapsedGroups, QStringList{folded});
            QCOMPARE(posted(), KWListDisplayConfigurationDidChangeNotification);
        }
        QVERIFY(lists.configuration(KWListIdentifier::tag(u"a"_s)).collapsedGroups.isEmpty());
        comesBack<KWListDisplayConfiguration>([&] {
            QVERIFY(lists.configuration(today).collapsedGroups.isEmpty());
            QVERIFY(lists.save(lists.configuration(today)));
        });
    }

    void keepsWhatTheCalendarShows()
    {
        KWCalendarDisplayConfigurationManager calendar{m_store->kit().manager(), m_store->kit().center(),
                                                       m_store->userID()};
        QVERIFY(calendar.configuration() == KWCalendarDisplayConfigurationModel{});
        const auto show = [&](KWCalendarViewMode mode) {
            KWCalendarDisplayConfigurationModel shown = calendar.configuration();
            shown.viewMode = mode;
            shown.hiddenCalendars = {u"holidays"_s};
            shown.hiddenLists = {u"chores"_s};
            shown.colorBy = KWCalendarColorByPriority;
            QVERIFY(calendar.save(shown));
            QCOMPARE(calendar.configuration().viewMode, mode);
            QCOMPARE(calendar.configuration().hiddenLists, shown.hiddenLists);
            QCOMPARE(calendar.configuration().colorBy, KWCalendarColorByPriority);
            QCOMPARE(posted(), KWCalendarDisplayConfigurationDidChangeNotification);
        };
        show(KWCalendarViewModeDay);
        show(KWCalendarViewModeWeek);
        comesBack<KWCalendarDisplayConfiguration>([&] {
            QVERIFY(calendar.configuration().hiddenCalendars.isEmpty());
            show(KWCalendarViewModeDay);
        });
    }

    void keepsFocusSettingsThatCanBe()
    {
        KWPomoSettingsManager manager{m_store->kit().manager(), m_store->kit().center(), m_store->userID()};
        KWPomoSettingsModel settings = manager.settings();
        for (const int minutes : {50, 90}) {
            settings.pomoDuration = minutes;
            QVERIFY(manager.save(settings));
            QCOMPARE(posted(), KWPomoSettingsChangedNotification);
            QCOMPARE(manager.settings().pomoDuration, minutes);
            QCOMPARE(manager.settings().userID, m_store->userID());
        }
        settings.longBreakInterval = 0;
        QVERIFY(!manager.save(settings));
        QCOMPARE(posted(), QString{});
        setSaved<KWPomoSettings>(*m_store, m_store->userID(), &KWPomoSettingsModel::longBreakInterval, 0);
        QCOMPARE(manager.settings().longBreakInterval, KWPomoSettingsModel{}.longBreakInterval);
        QCOMPARE(manager.settings().pomoDuration, 90);
    }

    void keepsWhatNewTasksGet()
    {
        KWTaskDefaultConfiguration chosen;
        chosen.priority = KWTaskPriorityMedium;
        chosen.dateOffset = std::chrono::days{0};
        chosen.reminders = {CXAlarmTrigger::triggerWithUnit(CXAlarmTrigger::Unit::Minutes, 10)};
        OrvaneKit &kit = m_store->kit();
        const auto save = [&](const KWTaskDefaultConfiguration &each, const QString &user) {
            return KWTaskDefaultConfigurationManager::save(each, user, kit.manager(), kit.defaults(),
                                                           kit.center());
        };
        QVERIFY(save(chosen, m_store->userID()) && !save({}, u"nobody"_s));
        QCOMPARE(posted(), KWTaskDefaultConfigurationChangedNotification);
        QVERIFY(m_store->account().taskDefaultConfiguration() == chosen);
    }
};

ORVANE_TEST(AccountSettings_test)
#include "AccountSettings_test.moc"
