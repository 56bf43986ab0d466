#include "cli/DemoAccount.h"
#include "cli/DemoContents.h"
#include "focus/FocusReader.h"
#include "model/OrvaneKit.h"
#include "support/ManualClock.h"
#include "support/TestMain.h"

#include <QTemporaryDir>

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

/// What the demo account has focused on.
class DemoFocus_test : public QObject {
    Q_OBJECT

    static FocusPageContent pageAt(const char *localTime)
    {
        const QTemporaryDir folder;
        ManualClock clock{localTime, "Europe/Berlin"};
        const auto opening = OrvaneKit::open(DataFolders::locate(folder.path()), clock);
        if (!opening.kit || !fillDemoAccount(*opening.kit)) qFatal("the demo could not be made");
        auto page = FocusReader::readPage({.recordLimit = 1000}, opening.kit->account().currentUserID(),
                                          opening.kit->context());
        if (!page) qFatal("%s", qUtf8Printable(page.error().sentence));
        return *page;
    }

private Q_SLOTS:
    void aMorningIsBehindToday()
    {
        const FocusPageContent page = pageAt("2030-05-01 12:00");
        QCOMPARE(page.pomoGoal, Demo::dailyPomoGoal);
        QCOMPARE(page.today().pomos, 5);
        QCOMPARE(page.today().focused, 155min);
        QStringList latest;
        for (const FocusRecordRow &each : page.records.first(4))
            latest << each.mainSubject().title;
        QCOMPARE(latest, QStringList({u"Write the launch announcement"_s, u"Review the budget"_s,
                                      u"Plan the weekend hike"_s, u"Weekly plan"_s}));
        QVERIFY(page.records.size() > 80);
    }

    void everySessionIsOfSomething()
    {
        const FocusPageContent page = pageAt("2030-05-01 23:59");
        for (const FocusRecordRow &each : page.records)
            QVERIFY2(each.mainSubject().isThere, qPrintable(each.recordID));
    }

    void nothingIsStillToCome()
    {
        const FocusPageContent page = pageAt("2030-05-01 08:30");
        QCOMPARE(page.records.first().endDate, at("2030-05-01 08:15", "Europe/Berlin"));
        QCOMPARE(page.today().pomos, 2);
    }
};

ORVANE_TEST(DemoFocus_test)
#include "DemoFocus_test.moc"
