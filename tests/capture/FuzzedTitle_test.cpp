#include "capture/FuzzedTitle.h"

#include "support/TestMain.h"

#include <QDir>
#include <QFile>
#include <QLocale>

/// The titles that the fuzz target begins with, and those that once broke something.
class FuzzedTitle_test : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void breaksNothing_data()
    {
        QTest::addColumn<QString>("path");
        const QDir folder{QStringLiteral(ORVANE_TEST_DATA "/fuzz/")};
        for (const QFileInfo &file : folder.entryInfoList(QDir::Files))
            QTest::newRow(qPrintable(file.fileName())) << file.filePath();
    }
    void breaksNothing()
    {
        const auto restore = qScopeGuard([] { QLocale::setDefault(QLocale::c()); });
        QFETCH(const QString, path);
        QFile file{path};
        QVERIFY(file.open(QIODevice::ReadOnly));
        QCOMPARE(complaintAboutFuzzedTitle(file.readAll()), QByteArray{});
    }
};

ORVANE_TEST(FuzzedTitle_test)
#include "FuzzedTitle_test.moc"
