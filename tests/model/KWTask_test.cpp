#include "model/records/KWTask.h"

#include "model/records/KWChecklistItem.h"
#include "model/records/KWProject.h"
#include "model/records/KWTaskDateTimeReminderModel.h"
#include "model/records/OneLine.h"
#include "model/settings/KWTaskDefaultConfiguration.h"
#include "model/store/Connection.h"
#include "model/store/KWTaskEditor.h"
#include "support/TaskBuilder.h"
#include "support/TestMain.h"

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

namespace {

constexpr const char *zone = "Europe/Berlin";

TaskBuilder due() { return aTask("Pay rent", zone); }

} // namespace

class KWTask_test : public QObject {
    Q_OBJECT

    std::unique_ptr<StoreFixture> m_store;

    KWTask &task(const QString &id) { return *m_store->context().find<KWTask>(id); }
    KWTaskEditor editor() { return KWTaskEditor{m_store->kit().manager()}; }
    QStringList itemTitles(const QString &taskID);

private Q_SLOTS:
    void init() { m_store = std::make_unique<StoreFixture>("2030-05-01 09:00", zone); }
    void isOverdueOnceItsLastMomentIsPast_data();
    void isOverdueOnceItsLastMomentIsPast();
    void setsTheCompletionDateWithTheStatus();
    void isPinnedWhileItHasAPinnedDate();
    void standsOnTopOfItsList();
    void keepsAnyTitle_data();
    void keepsAnyTitle();
    void carriesItsDatesOverAndBack();
    void takesConfiguredDefaults();
    void makesOneLineOfATitle_data();
    void makesOneLineOfATitle();
    void editsTheTitleAndTheText();
    void keepsTheDescriptionWhenItBecomesAChecklist();
    void keepsTheItemsOfAChecklistInOrder();
    void leavesAnItemAsItWasWhenSavingFails();
};

QStringList KWTask_test::itemTitles(const QString &taskID)
{
    QStringList titles;
    const auto found = editor().read(taskID);
    for (const KWChecklistItemModel &each : found->items)
        titles << each.title;
    return titles;
}

void KWTask_test::isOverdueOnceItsLastMomentIsPast_data()
{
    QTest::addColumn<KWTaskModel>("model");
    QTest::addColumn<bool>("isOverdue");
    const auto row = [](const char *name, const TaskBuilder &builder, bool isOverdue) {
        QTest::newRow(name) << builder.model() << isOverdue;
    };
    row("no date", due(), false);
    row("today", due().dueOn("2030-05-01"), false);
    row("yesterday", due().dueOn("2030-04-30"), true);
    row("until today", due().dueFrom("2030-04-01", "2030-05-01"), false);
    row("until yesterday", due().dueFrom("2030-04-01", "2030-04-30"), true);
    row("now", due().startingAt("2030-05-01 09:00"), false);
    row("a minute ago", due().startingAt("2030-05-01 08:59"), true);
    row("runs", due().startingAt("2030-05-01 08:00").endingAt("2030-05-01 09:30"), false);
    row("ran", due().startingAt("2030-05-01 08:00").endingAt("2030-05-01 08:59"), true);
    row("completed", due().dueOn("2030-04-30").completedAt("2030-05-01 08:00"), false);
}

void KWTask_test::isOverdueOnceItsLastMomentIsPast()
{
    QFETCH(KWTaskModel, model);
    model.projectID = KWProject::inboxIDOfUser(m_store->userID());
    QTEST(m_store->context().insert<KWTask>(model).isOverdue(), "isOverdue");
}

void KWTask_test::setsTheCompletionDateWithTheStatus()
{
    KWTask &rent = task(due().savedIn(*m_store));
    rent.updateStatus(KWTaskStatusAbandoned);
    QVERIFY(rent.isAbandoned() && !rent.isCompleted());
    QCOMPARE(rent->completionDate, std::optional{m_store->clock.now()});
    m_store->clock.advance(1h);
    rent.updateStatus(KWTaskStatusCompleted);
    QVERIFY(rent.isCompleted() && !rent.isAbandoned());
    QCOMPARE(rent->completionDate, std::optional{m_store->clock.now()});
    rent.updateStatus(KWTaskStatusOpen);
    QVERIFY(!rent->completionDate);
}

void KWTask_test::isPinnedWhileItHasAPinnedDate()
{
    const QString id = due().savedIn(*m_store);
    task(id).pin(m_store->clock.now());
    QVERIFY(m_store->context().save());
    m_store->reopen();
    QVERIFY(task(id).isPinned());
    task(id).unpin();
    QVERIFY(!task(id).isPinned());
}

void KWTask_test::standsOnTopOfItsList()
{
    const QString home = m_store->makeList(u"Home"_s);
    KWProject &list = *m_store->context().find<KWProject>(home);
    QCOMPARE(list.sortOrderForNewTask(), -KWSortOrderStep);
    due().in(home).ordered(-5).savedIn(*m_store);
    due().ordered(-5000).savedIn(*m_store);
    QCOMPARE(list.sortOrderForNewTask(), -5 - KWSortOrderStep);
    QCOMPARE(task(due().in(home).savedIn(*m_store)).project(), &list);
}

void KWTask_test::keepsAnyTitle_data()
{
    QTest::addColumn<QString>("title");
    QTest::newRow("a hundred thousand characters") << QString{100'000, u'語'};
    QTest::newRow("beyond the first plane") << u"Call 👩‍🚀 and 𝒙"_s;
    QTest::newRow("a character zero") << u"a"_s + QChar{u'\0'} + u"b"_s;
    QTest::newRow("quotes and marks") << u"'; DROP TABLE tasks; -- \" ? % _ \\"_s;
    QTest::newRow("from right to left") << u"\u202Eשלום‏"_s;
    QTest::newRow("empty") << u""_s;
}

void KWTask_test::keepsAnyTitle()
{
    QFETCH(const QString, title);
    const QString id = due().savedIn(*m_store);
    task(id).set(&KWTaskModel::title, title);
    task(id).set(&KWTaskModel::tags, {title, u"b"_s});
    QVERIFY(m_store->context().save());
    m_store->reopen();
    QCOMPARE(task(id)->title, title);
    QCOMPARE(task(id)->tags, QStringList({title, u"b"_s}));
    QCOMPARE(m_store->context().number("SELECT count(*) FROM taskTags"), 2);
}

void KWTask_test::carriesItsDatesOverAndBack()
{
    KWTaskModel allDay = due().dueFrom("2030-05-01", "2030-05-03").model();
    allDay.repeatRule = u"RRULE:FREQ=WEEKLY"_s;
    allDay.repeatFrom = CXRecurrenceFromCompletionDate;
    allDay.reminders = {u"TRIGGER:P0DT9H0M0S"_s};
    const KWTaskModel timed = due().startingAt("2030-05-01 10:00").model();
    for (const KWTaskModel &each : {allDay, timed, due().model()}) {
        const auto dates = KWTaskDateTimeReminderModel::ofTask(each);
        QCOMPARE(dates.isAllDay(), each.isAllDay);
        KWTaskModel copy = due().dueOn("2020-01-01").model();
        copy.reminders = {u"TRIGGER:PT0S"_s};
        dates.applyTo(copy, QString::fromLatin1(zone));
        QVERIFY(copy == each);
    }
}

void KWTask_test::takesConfiguredDefaults()
{
    KWTaskDefaultConfiguration defaults;
    defaults.reminders = {CXAlarmTrigger::onTime()};
    defaults.allDayReminders = {CXAlarmTrigger::onTime_AllDay()};
    KWTaskDateTimeReminderModel dates;
    dates.presetDefaultDateIfNeeded(defaults, m_store->clock);
    QVERIFY(!dates.startDateTime);
    QVERIFY(!dates.presetDefaultRemindersIfNeeded(defaults));

    defaults.dateOffset = std::chrono::days{1};
    dates.presetDefaultDateIfNeeded(defaults, m_store->clock);
    QVERIFY(dates.startDateTime == KWDateTime::dateTimeWithDate(at("2030-05-02 00:00", zone), false));
    QVERIFY(dates.presetDefaultRemindersIfNeeded(defaults));
    QCOMPARE(dates.alarmTriggers, defaults.allDayReminders);

    dates = {};
    dates.startDateTime = KWDateTime::dateTimeWithDate(at("2030-06-01 10:00", zone), true);
    const auto given = dates.startDateTime;
    dates.presetDefaultDateIfNeeded(defaults, m_store->clock);
    QVERIFY(dates.startDateTime == given);
    QVERIFY(dates.presetDefaultRemindersIfNeeded(defaults));
    QCOMPARE(dates.alarmTriggers, defaults.reminders);
    QVERIFY(!dates.presetDefaultRemindersIfNeeded({})); // has some already
    QCOMPARE(dates.alarmTriggers, defaults.reminders);
}

void KWTask_test::makesOneLineOfATitle_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("line");
    QTest::newRow("plain") << u"Pay rent"_s << u"Pay rent"_s;
    QTest::newRow("several lines") << u"\r\nPay\r\nthe\nrent\u2028now\n"_s << u"Pay the rent now"_s;
    QTest::newRow("whole pairs") << u"😀\n😀"_s << u"😀 😀"_s;
    QTest::newRow("nothing") << u" \n\t "_s << QString{};
}

void KWTask_test::makesOneLineOfATitle()
{
    QFETCH(const QString, text);
    QTEST(onOneLine(text), "line");
}

void KWTask_test::editsTheTitleAndTheText()
{
    const QString id = due().savedIn(*m_store);
    QVERIFY(editor().setTitle(id, u" Pay\nthe rent "_s));
    QVERIFY(editor().setContent(id, u"By\ntransfer"_s));
    const Result<void> refused = editor().setTitle(id, u" \n"_s);
    QVERIFY(!refused && refused.error().sentence.endsWith(u'.'));
    m_store->reopen();
    QCOMPARE(task(id)->title, u"Pay the rent"_s);
    QCOMPARE(task(id)->content, u"By\ntransfer"_s);

    task(id).markDelete();
    QVERIFY(m_store->context().save());
    QVERIFY(!editor().setTitle(id, u"Rent"_s));
    QVERIFY(!editor().read(id));
    QVERIFY(!editor().addItem(id, {}, u"Item"_s));
}

void KWTask_test::keepsTheDescriptionWhenItBecomesAChecklist()
{
    const QString id = due().savedIn(*m_store);
    QVERIFY(editor().setContent(id, u"By transfer"_s));
    QVERIFY(editor().addItem(id, {}, u"item"_s));
    QCOMPARE(task(id)->description(), u"By transfer"_s);
    QVERIFY(editor().setContent(id, u"In cash"_s));
    m_store->reopen();
    QCOMPARE(task(id)->desc, u"In cash"_s);
    QCOMPARE(task(id)->content, QString{});
}

void KWTask_test::keepsTheItemsOfAChecklistInOrder()
{
    const QString id = due().savedIn(*m_store);
    const QString second = *editor().addItem(id, {}, u"second"_s);
    QCOMPARE(task(id)->kind, KWTaskKindChecklist);
    QVERIFY(editor().addItem(id, {}, u"first"_s));
    const QString last = *editor().addItem(id, u"no such item"_s, u"last"_s);
    for (int i = 9; i > 0; --i)
        QVERIFY(editor().addItem(id, second, u"between %1"_s.arg(i)));
    QCOMPARE(itemTitles(id).mid(0, 4),
             QStringList({u"first"_s, u"second"_s, u"between 1"_s, u"between 2"_s}));
    QCOMPARE(itemTitles(id).last(), u"last"_s);

    QVERIFY(editor().tickItem(last));
    QVERIFY(m_store->context().find<KWChecklistItem>(last)->isCompleted());
    QVERIFY(editor().tickItem(last));
    QVERIFY(!m_store->context().find<KWChecklistItem>(last)->isCompleted());
    QVERIFY(editor().setItemTitle(last, u"the\nlast"_s));
    QVERIFY(editor().removeItem(second));
    QVERIFY(!editor().tickItem(second));
    m_store->reopen();
    QCOMPARE(itemTitles(id).size(), 11);
    QCOMPARE(itemTitles(id).last(), u"the last"_s);
}

void KWTask_test::leavesAnItemAsItWasWhenSavingFails()
{
    const QString id = due().savedIn(*m_store);
    const QString item = *editor().addItem(id, {}, u"item"_s);
    m_store->context().connection().execute("PRAGMA query_only = 1");
    QVERIFY(!editor().addItem(id, item, u"other"_s));
    QVERIFY(!editor().tickItem(item));
    QVERIFY(!editor().setTitle(id, u"Rent"_s));
    QCOMPARE(itemTitles(id), QStringList{u"item"_s});
    QVERIFY(!editor().read(id)->items.first().isCompleted());
    QCOMPARE(task(id)->title, u"Pay rent"_s);
    m_store->context().connection().execute("PRAGMA query_only = 0");
    QVERIFY(editor().addItem(id, item, u"other"_s));
}

ORVANE_TEST(KWTask_test)
#include "KWTask_test.moc"
