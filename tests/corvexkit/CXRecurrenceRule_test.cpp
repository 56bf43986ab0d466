#include "corvexkit/recurrence/CXRecurrenceRule.h"

#include "support/CaseTable.h"
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
        const auto again = CXRecurrenceRule::parse(cells[1]);
        QVERIFY(again);
        QVERIFY(*again == *rule);
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

    void tellsRulesApart()
    {
        const QStringList texts{u"FREQ=MONTHLY"_s,
                                u"FREQ=YEARLY"_s,
                                u"FREQ=MONTHLY;INTERVAL=2"_s,
                                u"FREQ=MONTHLY;COUNT=2"_s,
                                u"FREQ=MONTHLY;UNTIL=20300501"_s,
                                u"FREQ=MONTHLY;UNTIL=20300501T000000"_s,
                                u"FREQ=MONTHLY;UNTIL=20300501T000000Z"_s,
                                u"FREQ=MONTHLY;BYDAY=MO"_s,
                                u"FREQ=MONTHLY;BYDAY=1MO"_s,
                                u"FREQ=MONTHLY;BYDAY=-1MO"_s,
                                u"FREQ=MONTHLY;BYMONTHDAY=1"_s,
                                u"FREQ=MONTHLY;BYMONTHDAY=-1"_s,
                                u"FREQ=MONTHLY;WKST=MO"_s,
                                u"FREQ=MONTHLY;SKIP=FORWARD"_s};
        for (const QString &first : texts)
            for (const QString &second : texts)
                QCOMPARE(*CXRecurrenceRule::parse(first) == *CXRecurrenceRule::parse(second),
                         first == second);
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
