#include "focus/FocusRecordEditor.h"

#include "focus/FocusFixture.h"
#include "focus/FocusReader.h"
#include "model/OrvaneKit.h"
#include "model/records/KWFocusSlice.h"
#include "model/records/KWPomodoro.h"
#include "model/records/KWTask.h"
#include "support/Answers.h"
#include "support/TestMain.h"

#include <random>

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

/// Records that are added, changed and deleted by hand, and what tasks and habits have of them.
class FocusRecordEditor_test : public QObject {
    Q_OBJECT

    std::unique_ptr<FocusFixture> m_fixture;
    std::unique_ptr<FocusRecordEditor> m_editor;

    // On the day of the test; it is noon.
    static Instant time(int hour, int minute = 0)
    {
        return at("2030-05-01 00:00", "Europe/Berlin") + hour * 1h + minute * 1min;
    }
    FocusTarget target(const char *letter) const { return m_fixture->target(QString::fromLatin1(letter)); }
    QString summary(const char *letter) { return m_fixture->summaryOf(QString::fromLatin1(letter)); }
    Result<void> undo(const UndoToken &token) { return token.undo(m_fixture->store.kit().manager()); }

    FocusPageContent page()
    {
        return *FocusReader::readPage({.recordLimit = 1000}, m_fixture->store.userID(),
                                      m_fixture->store.context());
    }
    // "09:00-09:25 A x 25" and so on, the earliest first.
    QString records()
    {
        QStringList texts;
        const FocusPageContent shown = page();
        for (const FocusRecordRow &each : shown.records) {
            const auto minute = [](Instant when) { return (when - time(0)) / 1min; };
            QString text = u"%1-%2"_s.arg(minute(each.startDate)).arg(minute(each.endDate));
            for (const FocusSubject &subject : each.subjects)
                text += u" %1:%2"_s.arg(subject.title).arg(subject.focused / 1min);
            texts.prepend(text);
        }
        return texts.join(u", "_s);
    }
    // All that focus keeps, without the state of sync.
    QStringList stored()
    {
        QStringList texts{records(), summary("A"), summary("B")};
        texts << QString::number(m_fixture->secondsOfHabit(2030'05'01))
              << QString::number(m_fixture->store.context().number(
                     "SELECT count(*) FROM focusSlices WHERE isDeleted = 0"))
              << QString::number(m_fixture->store.context().number(
                     "SELECT count(*) FROM focusSummaries WHERE isDeleted = 0"));
        return texts;
    }

private Q_SLOTS:
    void init()
    {
        m_fixture = std::make_unique<FocusFixture>();
        m_editor = std::make_unique<FocusRecordEditor>(m_fixture->store.kit());
    }

    void saysWhatIsWrong()
    {
        m_fixture->session(u"stopwatch"_s, time(8), u"A:10+pause:30+A:20"_s);
        const auto made =
            m_editor->add({.target = target("A"), .startDate = time(10), .endDate = time(10, 25)});
        QVERIFY(made);
        m_fixture->deleteWhatIsGone();
        const QStringList before = stored();
        struct Case {
            FocusTarget target;
            Instant startDate;
            Instant endDate;
            QStringView sentence;
        };
        for (const Case &each :
             {Case{{}, time(9, 30), time(9, 30), u"after the start"},
              Case{{}, time(9, 40), time(9, 30), u"after the start"},
              Case{{}, time(11, 59), time(12) + 1s, u"still to come"},
              Case{{}, time(-40), time(-16) + 1s, u"24 hours"},
              Case{{}, time(9, 30), time(9, 31) - 1ms, u"a minute"},
              Case{{}, time(8, 9), time(8, 20), u"this time already"},
              Case{{}, time(8, 20), time(8, 41), u"this time already"},
              Case{target("D"), time(9, 30), time(9, 40), u"no such task"},
              Case{target("G"), time(9, 30), time(9, 40), u"no such task"},
              Case{FocusTarget::habit(u"none"_s), time(9, 30), time(9, 40), u"no such habit"}}) {
            QVERIFY2(isRefused(m_editor->add({each.target, each.startDate, each.endDate}), each.sentence),
                     qPrintable(each.sentence.toString()));
            QVERIFY2(isRefused(m_editor->change(made->recordID, {each.startDate, each.endDate, each.target}),
                               each.sentence),
                     qPrintable(each.sentence.toString()));
        }
        QVERIFY(isRefused(m_editor->remove(u"none"_s), u"no such focus record"));
        QVERIFY(m_editor->remove(made->recordID));
        QVERIFY(
            isRefused(m_editor->change(made->recordID, {time(9, 30), time(9, 40)}), u"no such focus record"));
        QVERIFY(isRefused(m_editor->remove(made->recordID), u"no such focus record"));
        QVERIFY(undo(made->undo));
        QCOMPARE(summary("A"), u"0 Pomos, 0 and 1800 s"_s);
        QCOMPARE(before.first(), u"480-540 A:30, 600-625 A:25"_s);
    }

    void whatTouchesAnotherOrLiesInItsPauseIsTaken()
    {
        m_fixture->session(u"stopwatch"_s, time(8), u"A:10+pause:30+A:20"_s);
        QVERIFY(m_editor->add({target("B"), time(7, 50), time(8)}));
        QVERIFY(m_editor->add({target("B"), time(8, 10), time(8, 40)}));
        QVERIFY(m_editor->add({target("B"), time(9), time(9, 1)}));
        QCOMPARE(summary("B"), u"3 Pomos, 2460 and 0 s"_s);
    }

    void addingIsTakenBack()
    {
        const QStringList before = stored();
        const auto pomo = m_editor->add({target("A"), time(9), time(9, 25)});
        QVERIFY(pomo);
        const auto watch = m_editor->add({target("A"), time(10), time(10, 30), KWFocusTypeStopwatch});
        const auto habit = m_editor->add({target("H"), time(11), time(11, 5)});
        QVERIFY(watch && habit);
        QCOMPARE(records(), u"540-565 A:25, 600-630 A:30, 660-665 H:5"_s);
        QCOMPARE(summary("A"), u"1 Pomos, 1500 and 1800 s"_s);
        QCOMPARE(m_fixture->secondsOfHabit(2030'05'01), 300);
        QVERIFY(undo(pomo->undo)); // what came later stays
        QCOMPARE(summary("A"), u"0 Pomos, 0 and 1800 s"_s);
        QVERIFY(undo(watch->undo) && undo(habit->undo));
        QCOMPARE(records(), before.first());
        QCOMPARE(m_fixture->secondsOfHabit(2030'05'01), 0);
    }

    void changingCorrectsWhatWasCredited_data()
    {
        QTest::addColumn<int>("from");
        QTest::addColumn<int>("to");
        QTest::addColumn<QString>("target");
        QTest::addColumn<QString>("record");
        QTest::addColumn<QString>("ofA");
        QTest::addColumn<QString>("ofB");

        // 480 to 510: ten minutes of A, ten of pause, ten of B
        QTest::newRow("cut") << 485 << 505 << u""_s << u"485-505 A:5 B:5"_s << u"1 Pomos, 300 and 0 s"_s
                             << u"1 Pomos, 300 and 0 s"_s;
        QTest::newRow("grown") << 470 << 515 << u""_s << u"470-515 A:20 B:15"_s << u"1 Pomos, 1200 and 0 s"_s
                               << u"1 Pomos, 900 and 0 s"_s;
        QTest::newRow("moved") << 490 << 520 << u""_s << u"490-520 A:10 B:10"_s << u"1 Pomos, 600 and 0 s"_s
                               << u"1 Pomos, 600 and 0 s"_s;
        QTest::newRow("moved away and cut") << 600 << 615 << u""_s << u"600-615 A:10"_s
                                            << u"1 Pomos, 600 and 0 s"_s << u"0 Pomos, 0 and 0 s"_s;
        QTest::newRow("its pause alone") << 491 << 499 << u""_s << u"491-499 A:8"_s
                                         << u"1 Pomos, 480 and 0 s"_s << u"0 Pomos, 0 and 0 s"_s;
        QTest::newRow("of another") << 480 << 510 << u"B"_s << u"480-510 B:20"_s << u"0 Pomos, 0 and 0 s"_s
                                    << u"1 Pomos, 1200 and 0 s"_s;
        QTest::newRow("of nothing") << 480 << 510 << u"none"_s << u"480-510 :20"_s << u"0 Pomos, 0 and 0 s"_s
                                    << u"0 Pomos, 0 and 0 s"_s;
        QTest::newRow("of a habit") << 480 << 495 << u"H"_s << u"480-495 H:10"_s << u"0 Pomos, 0 and 0 s"_s
                                    << u"0 Pomos, 0 and 0 s"_s;
    }
    void changingCorrectsWhatWasCredited()
    {
        QFETCH(int, from);
        QFETCH(int, to);
        QFETCH(QString, target);
        QFETCH(QString, record);
        QFETCH(QString, ofA);
        QFETCH(QString, ofB);
        const QString id = m_fixture->session(u"pomo"_s, time(8), u"A:10+pause:10+B:10"_s);
        const QStringList before = stored();
        FocusRecordEditor::Change change{time(0, from), time(0, to)};
        if (!target.isEmpty()) change.target = m_fixture->target(target);
        const auto changed = m_editor->change(id, change);
        QVERIFY2(changed, changed ? "" : qPrintable(changed.error().sentence));
        QCOMPARE(records(), record);
        QCOMPARE(summary("A"), ofA);
        QCOMPARE(summary("B"), ofB);
        const FocusRecordRow row = page().records.first();
        QCOMPARE(row.pause + row.focused, row.endDate - row.startDate);
        QCOMPARE(m_fixture->secondsOfHabit(2030'05'01), target == u"H" ? row.focused.count() : 0);
        QVERIFY(undo(*changed));
        QCOMPARE(stored(), before);
    }

    void whatIsGoneKeepsItsName()
    {
        const QString id = m_fixture->session(u"pomo"_s, time(8), u"G:10+D:10"_s);
        m_fixture->deleteWhatIsGone();
        const auto changed = m_editor->change(id, {time(8, 1), time(8, 20)});
        QVERIFY(changed);
        QCOMPARE(records(), u"481-500 D:10 G:9"_s);
        QVERIFY(undo(*changed));
        QCOMPARE(records(), u"480-500 G:10 D:10"_s);
    }

    void aDeletedRecordComesBackWithAllItGave()
    {
        const QString id = m_fixture->session(u"pomo"_s, time(8), u"A:10+pause:5+H:15"_s);
        const QStringList before = stored();
        const auto removed = m_editor->remove(id);
        QVERIFY(removed);
        QCOMPARE(records(), QString{});
        QCOMPARE(summary("A"), u"0 Pomos, 0 and 0 s"_s);
        QCOMPARE(m_fixture->secondsOfHabit(2030'05'01), 0);
        m_fixture->session(u"pomo"_s, time(9), u"A:25"_s);
        QVERIFY(undo(*removed));
        QCOMPARE(summary("A"), u"2 Pomos, 2100 and 0 s"_s);
        QCOMPARE(m_fixture->secondsOfHabit(2030'05'01), 900);
        QCOMPARE(records(), before.first() + u", 540-565 A:25"_s);
    }

    void whatWasChangedAgainIsNotTakenBack()
    {
        const auto made = m_editor->add({target("A"), time(9), time(9, 25)});
        QVERIFY(made);
        QVERIFY(m_editor->change(made->recordID, {time(9), time(9, 30)}));
        const QStringList before = stored();
        QVERIFY(isRefused(undo(made->undo), u"changed in the meantime"));
        QCOMPARE(stored(), before);
    }

    void whatEachHadIsTheSumOfItsStretches()
    {
        std::mt19937 random{20300501};
        const auto upTo = [&random](int most) { return int(random() % unsigned(most)); };
        const char *const letters[] = {"A", "B", "H", "none"};
        struct Step {
            UndoToken undo;
            QStringList before;
        };
        std::vector<Step> steps;
        int undone = 0;
        for (int i = 0; i < 250; ++i) {
            const FocusPageContent shown = page();
            const QString record =
                shown.records.isEmpty() ? QString{} : shown.records[upTo(int(shown.records.size()))].recordID;
            const Instant start = time(0, upTo(700));
            const Instant end = start + upTo(90) * 1min + upTo(60) * 1s;
            const QStringList before = stored();
            const int what = upTo(10);
            Result<UndoToken> done = UndoToken{};
            if (what < 4) {
                const auto made = m_editor->add({target(letters[upTo(4)]), start, end, KWFocusType(upTo(2))});
                if (!made) continue;
                done = made->undo;
            } else if (what < 7) {
                FocusRecordEditor::Change change{start, end};
                if (upTo(2)) change.target = target(letters[upTo(4)]);
                done = m_editor->change(record, change);
            } else if (what < 8) {
                done = m_editor->remove(record);
            } else if (!steps.empty()) {
                QVERIFY(undo(steps.back().undo));
                QCOMPARE(stored().first(), steps.back().before.first());
                steps.pop_back();
                ++undone;
                compareSums();
                continue;
            }
            if (!done) continue;
            if (!done->isEmpty()) steps.push_back({*done, before});
            compareSums();
        }
        QVERIFY(undone > 10 && steps.size() > 10);
    }

private:
    void compareSums()
    {
        std::map<QString, std::pair<int, std::int64_t>> sums;
        const FocusPageContent shown = page();
        for (const FocusRecordRow &record : shown.records)
            for (const FocusSubject &each : record.subjects) {
                auto &[pomos, seconds] = sums[each.title];
                pomos += record.type == KWFocusTypePomo && each.focused >= 1min;
                seconds += each.focused.count();
            }
        ObjectContext &context = m_fixture->store.context();
        for (const char *letter : {"A", "B"}) {
            const auto focus = FocusReader::readTask(target(letter).entityID, context);
            const auto &[pomos, seconds] = sums[QString::fromLatin1(letter)];
            QCOMPARE(focus->pomos, pomos);
            QCOMPARE(focus->focused.count(), seconds);
        }
        QCOMPARE(m_fixture->secondsOfHabit(2030'05'01), sums[u"H"_s].second);
    }
};

ORVANE_TEST(FocusRecordEditor_test)
#include "FocusRecordEditor_test.moc"
