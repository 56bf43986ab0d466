#include "cli/Invocation.h"

#include "support/CaseTable.h"
#include "support/TestMain.h"

using namespace Qt::StringLiterals;

class Invocation_test : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void table_data()
    {
        QTest::addColumn<QStringList>("cells");
        for (const CaseRow &row : readCases("cli/invocations.txt", 5))
            QTest::newRow(row.where.constData()) << row.cells;
    }

    void table()
    {
        QFETCH(QStringList, cells);
        const Result<Invocation> invocation = Invocation::parse(cells.at(0).split(u' ', Qt::SkipEmptyParts));
        if (!cells.at(4).isEmpty()) {
            QVERIFY2(!invocation, "an error was expected");
            const QString expected = cells.at(4).mid(1).trimmed();
            QVERIFY2(invocation.error().sentence.contains(expected),
                     qUtf8Printable(invocation.error().sentence));
            return;
        }
        QVERIFY2(bool(invocation), invocation ? "" : qUtf8Printable(invocation.error().sentence));
        const QStringList actions{u"Window"_s, u"Picture"_s, u"Version"_s, u"Help"_s, u"Command"_s};
        QCOMPARE(actions.at(int(invocation->action)), cells.at(1));
        QCOMPARE(invocation->command, cells.at(2));
        QCOMPARE(invocation->arguments.join(u','), cells.at(3));
    }

    void valuesAreTaken()
    {
        const auto invocation = Invocation::parse({u"--home=/a b"_s, u"--zone"_s, u"Asia/Tokyo"_s, u"add"_s,
                                                   u"--list"_s, u"Client launch"_s, u"Pay"_s});
        QVERIFY(bool(invocation));
        QCOMPARE(invocation->home, u"/a b"_s);
        QCOMPARE(invocation->zone, u"Asia/Tokyo"_s);
        QCOMPARE(invocation->list, u"Client launch"_s);
    }

    void everyCommandHasAUsage()
    {
        for (const QString &command : {u"add"_s, u"list"_s, u"done"_s, u"undo"_s})
            QVERIFY2(usageOf(command).contains(u"orvane "_s + command), qUtf8Printable(command));
        QVERIFY(usageOf({}).contains(u"--picture"_s));
    }
};

ORVANE_TEST(Invocation_test)
#include "Invocation_test.moc"
