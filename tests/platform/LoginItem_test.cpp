#include "platform/LoginItem.h"

#include "support/Files.h"
#include "support/TestMain.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QTemporaryDir>

using namespace Qt::StringLiterals;

class LoginItem_test : public QObject {
    Q_OBJECT

    QTemporaryDir m_folder;
    QString m_entry = m_folder.filePath(u"autostart/org.orvane.Orvane.desktop"_s);

    QString entry() { return QString::fromUtf8(bytesOf(m_entry)); }

private Q_SLOTS:
    void goesOnAndOffAndObeysTheDesktopsOwnSettings()
    {
        LoginItem item{m_entry, {u"/opt/orvane/bin/orvane"_s}};
        for (const LoginStart start : {LoginStart::InBackground, LoginStart::WithWindow, LoginStart::Off,
                                       LoginStart::Off, LoginStart::InBackground}) {
            QVERIFY(item.setStart(start));
            QCOMPARE(item.start(), start);
            QCOMPARE(QFile::exists(m_entry), start != LoginStart::Off);
            QCOMPARE(entry().contains(u"--login-item"_s), start == LoginStart::InBackground);
        }
        const QString on = entry();
        for (const QString &off :
             {on + u"Hidden=true\n"_s, QString{on}.replace(u"enabled=true"_s, u"enabled=false"_s)}) {
            write(m_entry, off.toUtf8());
            QCOMPARE(item.start(), LoginStart::Off);
        }
        QVERIFY(item.setStart(LoginStart::InBackground));
        QCOMPARE(entry(), on);
    }

    void quotesWhatAShellWouldRead()
    {
        QCOMPARE(LoginItem::execLine({u"/opt/my \"$HOME\" 100%/`orvane`\\"_s, u"--home"_s}),
                 uR"("/opt/my \\"\\$HOME\\" 100%%/\\`orvane\\`\\\\" "--home")"_s);
    }

    void startsTheProgramOnItsDataFolder()
    {
        for (const QString &home : {m_folder.path(), QString{}}) {
            LoginItem item{home.isEmpty() ? DataFolders::standard() : DataFolders::locate(home)};
            QVERIFY(item.setStart(LoginStart::WithWindow));
            const QDir autostart{qEnvironmentVariable("XDG_CONFIG_HOME") + u"/autostart"_s};
            QCOMPARE(autostart.entryList(QDir::Files).size(), 1);
            const QString file = autostart.filePath(autostart.entryList(QDir::Files).constFirst());
            QStringList command{QCoreApplication::applicationFilePath()};
            if (!home.isEmpty()) command += {u"--home"_s, home};
            QVERIFY(bytesOf(file).contains("\nExec=" + LoginItem::execLine(command).toUtf8() + '\n'));
            QVERIFY(item.setStart(LoginStart::Off));
        }
    }

    void saysWhenTheFolderCannotBeWritten()
    {
        LoginItem item{u"/proc/autostart/orvane.desktop"_s, {u"orvane"_s}};
        QCOMPARE(item.setStart(LoginStart::WithWindow).error().sentence,
                 u"The entry “/proc/autostart/orvane.desktop” cannot be written."_s);
    }
};

ORVANE_TEST(LoginItem_test)
#include "LoginItem_test.moc"
