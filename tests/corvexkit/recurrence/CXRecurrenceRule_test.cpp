#include "corvexkit/recurrence/CXRecurrenceRule.h"

#include "corvexkit/recurrence/RuleMove.h"
#include "support/CaseTable.h"
#include "support/ManualClock.h"
#include "support/TestMain.h"

using namespace Qt::StringLiterals;

class CXRecurrenceRule_test : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void readsAndWrites_data() { addCaseRows("recurrence/rules.txt", 2); }
    void readsAndWrites()
    {
        QFETCH(QStringList, cells);
        const auto rule = CXRecurrenceRule::parse(cells[0]);
        QVERIFY2(rule, rule ? "" : qPrintable(rule.error().sentence));
        QCOMPARE(rule->toIcal(), cells[1]);
        QVERIFY(CXRecurrenceRule::parse(cells[1]).value() == *rule);
    }

    void refuses_data() { addCaseRows("recurrence/invalid.txt", 3); }
    void refuses()
    {
        QFETCH(QStringList, cells);
        const auto rule = CXRecurrenceRule::parse(cells[0]);
        QVERIFY(!rule);
        QCOMPARE(rule.error().sentence,
                 u"The recurrence rule cannot be read at character %1: %2."_s.arg(cells[1], cells[2]));
    }

    void movesAlong_data() { addCaseRows("recurrence/moves.txt", 4); }
    void movesAlong()
    {
        QFETCH(QStringList, cells);
        const CXTimeZone utc;
        const auto moved = movedRule(*CXRecurrenceRule::parse(cells[0]), utc.toLocal(at(cells[1].toLatin1())),
                                     utc.toLocal(at(cells[2].toLatin1())));
        QCOMPARE(moved ? moved->toIcal() : u"-"_s, cells[3] == u"-" ? cells[3] : u"RRULE:"_s + cells[3]);
    }

    void tellsRulesApart()
    {
        const QList<CaseRow> rows = readCases("recurrence/rules.txt", 2);
        for (const CaseRow &one : rows)
            for (const CaseRow &other : rows)
                QCOMPARE(*CXRecurrenceRule::parse(one.cells[0]) == *CXRecurrenceRule::parse(other.cells[0]),
                         one.cells[1] == other.cells[1]);
    }

    // A long text, and one of characters that are no letters at all.
    void survivesAnyText()
    {
        const QString list = u"FREQ=DAILY;BYHOUR="_s + u"1,"_s.repeated(100'000) + u'2';
        QCOMPARE(CXRecurrenceRule::parse(list)->toIcal(), u"RRULE:FREQ=DAILY;INTERVAL=1;BYHOUR=1,2"_s);
        QString text;
        for (char16_t c = 1; c < 0x3000; ++c)
            text += c;
        const auto rule = CXRecurrenceRule::parse(text);
        QVERIFY(!rule);
        QVERIFY(rule.error().sentence.size() < 120);
    }
};

ORVANE_TEST(CXRecurrenceRule_test)
#include "CXRecurrenceRule_test.moc"
