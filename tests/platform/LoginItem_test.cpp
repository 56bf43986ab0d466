#include "platform/LoginItem.h"

#include "support/TestMain.h"

#include <QFile>
#include <QTemporaryDir>

using namespace Qt::StringLiterals;

class LoginItem_test : public QObject {
    Q_OBJECT

    QTemporaryDir m_folder;
    QString m_entry = m_folder.filePath(u"autostart/org.orvane.Orvane.desktop"_s);

    QString entry()
    {
        QFile file{m_entry};
        return file.open(QIODevice::ReadOnly) ? QString::fromUtf8(file.readAll()) : QString{};
    }
    void write(const QByteArray &text)
    {
        QFile file{m_entry};
        QVERIFY(file.open(QIODevice::WriteOnly));
        file.write(text);
    }

private Q_SLOTS:
    void goesOnAndOff()
    {
        LoginItem item{m_entry, {u"/opt/orvane/bin/orvane"_s}};
        for (const LoginStart start : {LoginStart::InBackground, LoginStart::WithWindow, LoginStart::Off}) {
            QVERIFY(item.setStart(start));
            QCOMPARE(item.start(), start);
            QCOMPARE(QFile::exists(m_entry), start != LoginStart::Off);
            QCOMPARE(entry().contains(u"--login-item"_s), start == LoginStart::InBackground);
        }
        QVERIFY(item.setStart(LoginStart::Off)); // there is nothing to remove
    }

    void obeysTheDesktopsOwnSettings()
    {
        LoginItem item{m_entry, {u"orvane"_s}};
        QVERIFY(item.setStart(LoginStart::InBackground));
        const QByteArray on = entry().toUtf8();
        write(on + "Hidden=true\n");
        QCOMPARE(item.start(), LoginStart::Off);
        write(QByteArray{on}.replace("enabled=true", "enabled=false"));
        QCOMPARE(item.start(), LoginStart::Off);
        QVERIFY(item.setStart(LoginStart::InBackground));
        QCOMPARE(item.start(), LoginStart::InBackground);
    }

    void quotesWhatAShellWouldRead()
    {
        QCOMPARE(LoginItem::execLine({u"/opt/my \"$HOME\" 100%/`orvane`\\"_s, u"--home"_s}),
                 uR"("/opt/my \\"\\$HOME\\" 100%%/\\`orvane\\`\\\\" "--home")"_s);
    }

    void saysWhenTheFolderCannotBeWritten()
    {
        LoginItem item{u"/proc/autostart/orvane.desktop"_s, {u"orvane"_s}};
        const Result<void> set = item.setStart(LoginStart::WithWindow);
        QVERIFY(!set);
        QVERIFY(set.error().sentence.contains(u"/proc/autostart"_s));
        QCOMPARE(item.start(), LoginStart::Off);
    }
};

ORVANE_TEST(LoginItem_test)
#include "LoginItem_test.moc"
