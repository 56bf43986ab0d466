#include "platform/Plugins.h"

#include "platform/PhaseSoundPlayer.h"
#include "support/TestMain.h"

#include <QDir>

using namespace Qt::StringLiterals;

/// Parts of the program that are loaded when they are needed.
class Plugins_test : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void findsNoneThatIsNotInstalled()
    {
        QCOMPARE(Plugins::fileOf(u"nothing"_s), QString{});
        QVERIFY(!Plugins::load(u"nothing"_s));
    }

    void refusesWhatIsNoLibrary()
    {
        const QString folder = QCoreApplication::applicationDirPath() + u"/plugins/"_s;
        QVERIFY(QDir{}.mkpath(folder));
        QFile file{folder + u"no-library.so"_s};
        QVERIFY(file.open(QIODevice::WriteOnly));
        file.write("This is a text.");
        file.close();
        QVERIFY(!Plugins::fileOf(u"no-library"_s).isEmpty());
        QVERIFY(!Plugins::load(u"no-library"_s));
        QVERIFY(file.remove());
    }

    void loadsEachOnce()
    {
        if (Plugins::fileOf(u"sound"_s).isEmpty()) QSKIP("It was built without Qt Multimedia.");
        QVERIFY(Plugins::load<PhaseSoundPlayer>(u"sound"_s));
        QCOMPARE(Plugins::load<PhaseSoundPlayer>(u"sound"_s), Plugins::load<PhaseSoundPlayer>(u"sound"_s));
    }
};

ORVANE_TEST(Plugins_test)
#include "Plugins_test.moc"
