#include "model/text/RuleWording.h"

#include "support/CaseTable.h"
#include "support/TestMain.h"

#include <QMap>

using namespace Qt::StringLiterals;

class RuleWording_test : public QObject {
    Q_OBJECT

    static QString wordsOf(const QString &rule, const QString &zone = u"Asia/Tokyo"_s,
                           const QLocale &locale = QLocale::c())
    {
        const Result<CXRecurrenceRule> read = CXRecurrenceRule::parse(rule);
        if (!read) qFatal("%s", qUtf8Printable(read.error().sentence));
        return RuleWording::words(*read, *CXTimeZone::named(zone), locale);
    }

private Q_SLOTS:
    void saysTheRule_data() { addCaseRows("model/rule-words.txt", 4); }
    void saysTheRule()
    {
        QFETCH(QStringList, cells);
        QCOMPARE(wordsOf(cells[0], cells[1], QLocale{cells[2]}), cells[3]);
    }

    // Rules of which no two mean the same have different words; so do the parts of each, added one by one.
    void tellsRulesApart()
    {
        QMap<QString, QString> rules; // by their words
        for (const CaseRow &row : readCases("recurrence/rules.txt", 2)) {
            const QString rule = CXRecurrenceRule::parse(row.cells[0])->toIcal();
            const QString known = rules.value(wordsOf(rule), rule);
            if (rule != known && !rule.contains(u"WKST")) QFAIL(qPrintable(rule + u" reads like "_s + known));
            rules.insert(wordsOf(rule), rule);
        }
        QString rule = u"FREQ=YEARLY"_s, words = wordsOf(rule);
        for (const QString &part :
             u"INTERVAL=3;BYMONTH=2;BYWEEKNO=7;BYYEARDAY=45;BYMONTHDAY=14;BYDAY=MO;BYHOUR=9;"
             "BYMINUTE=1;BYSECOND=2;BYSETPOS=-1;WKST=SU;SKIP=FORWARD;COUNT=5"_s.split(u';')) {
            const QString before = words;
            rule += u';' + part;
            words = wordsOf(rule);
            QVERIFY2(words != before, qPrintable(part + u" is not in “"_s + words + u'”'));
        }
    }
};

ORVANE_TEST(RuleWording_test)
#include "RuleWording_test.moc"
