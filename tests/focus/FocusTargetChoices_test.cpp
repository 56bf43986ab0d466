#include "focus/FocusTargetSearch.h"
#include "model/records/KWHabit.h"
#include "model/records/KWProject.h"
#include "model/records/KWTask.h"
#include "support/StoreFixture.h"
#include "support/TaskBuilder.h"
#include "support/TestMain.h"

#include <QSignalSpy>

using namespace Qt::StringLiterals;

/// What is offered to focus on, on Wednesday, 2030-05-01.
class FocusTargetChoices_test : public QObject {
    Q_OBJECT

    std::unique_ptr<StoreFixture> m_store;

    template <class Value>
    void change(const QString &taskID, Value KWTaskModel::*field, Value value)
    {
        saved(*m_store, [&](ObjectContext &context) { context.find<KWTask>(taskID)->set(field, value); });
    }
    static QString titlesOf(const QList<FocusTargetChoice> &choices)
    {
        QStringList titles;
        for (const FocusTargetChoice &each : choices)
            titles << each.title;
        return titles.join(u", "_s);
    }
    QList<FocusTargetChoice> choices(const QString &typed = {})
    {
        return focusTargetChoices(m_store->userID(), typed, m_store->context());
    }

private Q_SLOTS:
    void init()
    {
        m_store = std::make_unique<StoreFixture>("2030-05-01 09:00", "Europe/Berlin");
        aTask("Book the café").savedIn(*m_store);
        aTask("Water the plants").dueOn("2030-05-01").savedIn(*m_store);
        aTask("Sort the photos").dueOn("2030-05-02").savedIn(*m_store);
        aTask("Pay the water").dueOn("2030-04-30").savedIn(*m_store);
        aTask("🎉").savedIn(*m_store);
        saved(*m_store, [&](ObjectContext &context) {
            KWHabitModel habit;
            habit.userID = m_store->userID();
            habit.name = u"Drink water"_s;
            habit.color = u"#123456"_s;
            context.insert<KWHabit>(std::move(habit));
        });
        // None of these is offered.
        change(aTask("Water: a note").savedIn(*m_store), &KWTaskModel::kind, KWTaskKindNote);
        change(aTask("Water in the trash").savedIn(*m_store), &KWTaskModel::isTrashed, true);
        const QString deleted = aTask("Water, deleted").savedIn(*m_store);
        saved(*m_store, [&](ObjectContext &context) { context.find<KWTask>(deleted)->markDelete(); });
        change(aTask("Water, done").savedIn(*m_store), &KWTaskModel::status, KWTaskStatusCompleted);
        const QString list = m_store->makeList(u"Garden"_s);
        aTask("Water in an archived list").in(list).savedIn(*m_store);
        saved(*m_store, [&](ObjectContext &context) {
            context.find<KWProject>(list)->set(&KWProjectModel::closed, true);
        });
        aTask("").savedIn(*m_store);
    }

    void offersWhatFits_data()
    {
        QTest::addColumn<QString>("typed");
        QTest::addColumn<QString>("expected");
        QTest::newRow("nothing typed")
            << u""_s << u"Pay the water, Water the plants, Drink water, Sort the photos, Book the café, 🎉"_s;
        QTest::newRow("a word begun") << u" WAT "_s << u"Pay the water, Water the plants, Drink water"_s;
        QTest::newRow("two words") << u"the wat"_s << u"Pay the water, Water the plants"_s;
        QTest::newRow("an accent left out") << u"cafe"_s << u"Book the café"_s;
        QTest::newRow("no word") << u"🎉"_s << u"🎉"_s;
        QTest::newRow("signs of the query language") << u"\"wat* OR"_s << u""_s;
        QTest::newRow("a percent sign") << u"%"_s << u""_s;
        QTest::newRow("none") << u"zebra"_s << u""_s;
    }
    void offersWhatFits()
    {
        QFETCH(QString, typed);
        QFETCH(QString, expected);
        QCOMPARE(titlesOf(choices(typed)), expected);
        QVERIFY(m_store->context().readResult());
    }

    void hasColorsAndKinds()
    {
        const QList<FocusTargetChoice> drink = choices(u"drink"_s);
        QCOMPARE(drink.first().color, u"#123456"_s);
        QCOMPARE(drink.first().target.kind, FocusTarget::Kind::Habit);
        const QString list = m_store->makeList(u"Kitchen"_s);
        saved(*m_store, [&](ObjectContext &context) {
            context.find<KWProject>(list)->set(&KWProjectModel::color, u"#abcdef"_s);
        });
        const QString task = aTask("Clean the oven").in(list).savedIn(*m_store);
        const FocusTargetChoice oven{FocusTarget::task(task), u"Clean the oven"_s, u"#abcdef"_s};
        QCOMPARE(choices(u"oven"_s), QList{oven});
        QCOMPARE(lookOf(oven.target, m_store->context()), oven);
    }

    void offersThoseThatComeFirst()
    {
        saved(*m_store, [&](ObjectContext &context) {
            for (int i = 0; i < mostTargetChoices + 20; ++i) {
                KWTaskModel task;
                task.userID = m_store->userID();
                task.projectID = KWProject::inboxIDOfUser(task.userID);
                task.title = u"Number %1"_s.arg(i);
                task.sortOrder = i;
                context.insert<KWTask>(task);
            }
        });
        const QList<FocusTargetChoice> numbers = choices(u"number"_s);
        QCOMPARE(numbers.size(), mostTargetChoices);
        QCOMPARE(numbers.first().title, u"Number 0"_s);
        QCOMPARE(choices().size(), 3 + mostTargetChoices);
        QCOMPARE(titlesOf(choices(u"number 119"_s)), u"Number 119"_s);
    }

    void findsForTheLastText()
    {
        FocusTargetSearch search{m_store->kit()};
        QSignalSpy found{&search, &FocusTargetSearch::found};
        for (const QString &each : {u""_s, u"p"_s, u"ph"_s, u"pho"_s})
            search.find(each);
        QVERIFY(found.wait());
        QCOMPARE(found.size(), 1);
        QCOMPARE(found.first().first(), u"pho"_s);
        QCOMPARE(titlesOf(found.first().last().value<QList<FocusTargetChoice>>()), u"Sort the photos"_s);
    }
};

ORVANE_TEST(FocusTargetChoices_test)
#include "FocusTargetChoices_test.moc"
