#include "model/records/KWTask.h"

#include "model/records/KWChecklistItem.h"
#include "model/records/KWProject.h"
#include "model/records/KWTaskDateTimeReminderModel.h"
#include "model/records/OneLine.h"
#include "model/store/Connection.h"
#include "model/store/KWTaskEditor.h"
#include "support/TaskBuilder.h"
#include "support/TestMain.h"

using namespace Qt::StringLiterals;

namespace {

constexpr const char *zone = "Europe/Berlin";

TaskBuilder due() { return aTask("Pay rent", zone); }

} // namespace

class KWTask_test : public QObject {
    Q_OBJECT

    std::unique_ptr<StoreFixture> m_store;

    KWTask &task(const QString &id) { return *m_store->context().find<KWTask>(id); }
    KWTaskEditor editor() { return KWTaskEditor{m_store->kit().manager()}; }

    QStringList itemTitles(const QString &taskID)
    {
        QStringList titles;
        const auto found = editor().read(taskID);
        for (const KWChecklistItemModel &each : found->items)
            titles << each.title;
        return titles;
    }

private Q_SLOTS:
    void init() { m_store = std::make_unique<StoreFixture>("2030-05-01 09:00", zone); }

    void standsOnTopOfItsList()
    {
        const QString home = m_store->makeList(u"Home"_s);
        KWProject &list = *m_store->context().find<KWProject>(home);
        QCOMPARE(list.sortOrderForNewTask(), -KWSortOrderStep);
        const QString id = due().in(home).ordered(-5).savedIn(*m_store);
        due().ordered(-5000).savedIn(*m_store);
        QCOMPARE(list.sortOrderForNewTask(), -5 - KWSortOrderStep);
        QCOMPARE(task(id).project(), &list);
        list.markDelete();
        QCOMPARE(task(id).project(), nullptr);
    }

    void keepsAnyTitle()
    {
        const QStringList odd{QString{100'000, u'語'},        u"Call 👩‍🚀 and 𝒙"_s,
                              u"a"_s + QChar{u'\0'} + u"b"_s, u"'; DROP TABLE tasks; -- \" ? % _ \\"_s,
                              u"\u202Eשלום‏"_s,         QString{}};
        const QString id = due().savedIn(*m_store);
        for (const QString &title : odd) {
            task(id).set(&KWTaskModel::title, title);
            task(id).set(&KWTaskModel::tags, odd);
            QVERIFY(m_store->context().save());
            m_store->reopen();
            QCOMPARE(task(id)->title, title);
            QCOMPARE(task(id)->tags, odd);
        }
        QCOMPARE(m_store->context().number("SELECT count(*) FROM taskTags"), odd.size());
    }

    void carriesItsDatesOverAndBack()
    {
        KWTaskModel allDay = due().dueFrom("2030-05-01", "2030-05-03").model();
        allDay.repeatRule = u"RRULE:FREQ=WEEKLY"_s;
        allDay.repeatFrom = CXRecurrenceFromCompletionDate;
        allDay.reminders = {u"TRIGGER:P0DT9H0M0S"_s};
        const KWTaskModel timed = due().startingAt("2030-05-01 10:00").model();
        for (const KWTaskModel &each : {allDay, timed, due().model()}) {
            KWTaskModel copy = due().dueOn("2020-01-01").model();
            copy.reminders = {u"TRIGGER:PT0S"_s};
            KWTaskDateTimeReminderModel::ofTask(each).applyTo(copy, QString::fromLatin1(zone));
            QVERIFY(copy == each);
        }
    }

    void makesOneLineOfATitle()
    {
        QCOMPARE(onOneLine(u"\r\nPay\r\nthe\nrent\u2028now\n"_s), u"Pay the rent now"_s);
        QCOMPARE(onOneLine(u"😀\n😀"_s), u"😀 😀"_s);
        QCOMPARE(onOneLine(u" \n\t "_s), QString{});
    }

    void editsTheTitleAndTheText()
    {
        const QString id = due().savedIn(*m_store);
        QVERIFY(editor().setTitle(id, u" Pay\nthe rent "_s));
        QVERIFY(editor().setContent(id, u"By\ntransfer"_s));
        const Result<void> refused = editor().setTitle(id, u" \n"_s);
        QVERIFY(!refused && refused.error().sentence.endsWith(u'.'));
        QVERIFY(editor().addItem(id, {}, u"item"_s)); // makes a checklist of it
        QCOMPARE(task(id)->description(), u"By\ntransfer"_s);
        QVERIFY(editor().setContent(id, u"In cash"_s));
        m_store->reopen();
        QCOMPARE(task(id)->title, u"Pay the rent"_s);
        QCOMPARE(task(id)->desc, u"In cash"_s);
        QCOMPARE(task(id)->content, QString{});

        task(id).markDelete();
        QVERIFY(m_store->context().save());
        QVERIFY(!editor().setTitle(id, u"Rent"_s));
        QVERIFY(!editor().read(id));
        QVERIFY(!editor().addItem(id, {}, u"Item"_s));
    }

    void keepsTheItemsOfAChecklistInOrder()
    {
        const QString id = due().savedIn(*m_store);
        const QString second = *editor().addItem(id, {}, u"second"_s);
        QVERIFY(editor().addItem(id, {}, u"first"_s));
        const QString last = *editor().addItem(id, u"no such item"_s, u"last"_s);
        QStringList titles{u"last"_s};
        for (int i = 0; i < 60; ++i) { // more than there is room for
            titles.prepend(u"between %1"_s.arg(i));
            QVERIFY(editor().addItem(id, second, titles.first()));
        }
        QCOMPARE(itemTitles(id), QStringList({u"first"_s, u"second"_s}) + titles);

        QVERIFY(editor().tickItem(last));
        QVERIFY(m_store->context().find<KWChecklistItem>(last)->isCompleted());
        QVERIFY(editor().tickItem(last));
        QVERIFY(!m_store->context().find<KWChecklistItem>(last)->isCompleted());
        QVERIFY(editor().setItemTitle(last, u"the\nlast"_s));
        QVERIFY(editor().removeItem(second));
        QVERIFY(!editor().tickItem(second));
        m_store->reopen();
        QCOMPARE(itemTitles(id).size(), 62);
        QCOMPARE(itemTitles(id).last(), u"the last"_s);
    }

    void leavesAnItemAsItWasWhenSavingFails()
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
};

ORVANE_TEST(KWTask_test)
#include "KWTask_test.moc"
