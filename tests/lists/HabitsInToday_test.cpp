#include "RowText.h"
#include "lists/KWTaskListService.h"
#include "model/account/AccountSettings.h"
#include "model/records/KWHabit.h"
#include "model/records/KWSmartProject.h"
#include "model/records/KWUserSettingsModel.h"
#include "model/store/KWHabitUtils.h"
#include "support/TaskBuilder.h"
#include "support/TestMain.h"

using namespace Qt::StringLiterals;

/// It is Wednesday, 1 May 2030.
class HabitsInToday_test : public QObject {
    Q_OBJECT

    std::unique_ptr<StoreFixture> m_store;
    std::unique_ptr<KWTaskListService> m_service;
    int m_made = 0;
    static constexpr int today = 2030'05'01;

    QString shown() { return RowText::textOf(flatRows(m_service->categories(), m_service->folded())); }
    QString make(const QString &name, const QString &rule = u"FREQ=DAILY"_s)
    {
        KWHabitModel habit;
        habit.userID = m_store->userID();
        habit.name = name;
        habit.repeatRule = rule;
        habit.sortOrder = ++m_made;
        saved(*m_store, [&](ObjectContext &context) { habit.sid = context.insert<KWHabit>(habit).sid(); });
        return habit.sid;
    }
    Result<UndoToken> check(const QString &id)
    {
        return KWHabitUtils{m_store->kit().manager()}.updateHabitCheckin(id, today, HabitCheck::Add,
                                                                         CheckedBy::Person);
    }

private Q_SLOTS:
    void init()
    {
        m_store = std::make_unique<StoreFixture>();
        m_service = std::make_unique<KWTaskListService>(m_store->kit().manager(), m_store->account(),
                                                        m_store->kit().center(), m_store->kit().bus());
        m_service->select(KWListIdentifier::todayProject());
    }
    void cleanup()
    {
        m_service.reset();
        m_store.reset();
    }

    void standBehindTheTasksDoneOrNot()
    {
        aTask("Water").dueOn("2030-05-01").savedIn(*m_store);
        const QString read = make(u"Read"_s);
        make(u"Run"_s, u"FREQ=DAILY;BYDAY=TH"_s);
        const QString stretch = make(u"Stretch"_s);
        QTRY_COMPARE(shown(), u"[Today 1] Water [Habits 2] Read Stretch"_s);
        QVERIFY(check(read));
        QTRY_VERIFY(m_service->categories().last().models().first().isClosed());
        QCOMPARE(shown(), u"[Today 1] Water [Habits 2] Read Stretch"_s);
        QVERIFY(m_service->categories().last().isHabit());
        QCOMPARE(m_service->categories().last().models().first().taskID(), QString{});
        aTask("Iron").dueOn("2030-05-01").completedAt("2030-05-01 08:00").savedIn(*m_store);
        QTRY_COMPARE(shown(), u"[Today 1] Water [Habits 2] Read Stretch [Completed 1] Iron"_s);
        saved(*m_store, [&](ObjectContext &context) {
            context.find<KWHabit>(stretch)->set(&KWHabitModel::isArchived, true);
        });
        QTRY_COMPARE(shown(), u"[Today 1] Water [Habits 1] Read [Completed 1] Iron"_s);
        m_service->select(KWListIdentifier::smartProject(KWSmartProject::tomorrow().identifier()));
        QTRY_COMPARE(shown(), QString{});
    }

    void standThereWhenWanted()
    {
        make(u"Read"_s);
        QTRY_COMPARE(shown(), u"[Habits 1] Read"_s);
        AccountSettings settings{m_store->kit().manager(), m_store->kit().center(), m_store->userID()};
        QVERIFY(settings.change([](KWUserSettingsModel &model) { model.showsInToday = false; }));
        QTRY_COMPARE(shown(), QString{});
        QVERIFY(settings.change([](KWUserSettingsModel &model) { model.showsInToday = true; }));
        QTRY_COMPARE(shown(), u"[Habits 1] Read"_s);
    }
};

ORVANE_TEST(HabitsInToday_test)
#include "HabitsInToday_test.moc"
