#include "platform/DesktopFileManager.h"
#include "platform/XdgMail.h"

#include "platform/FakeService.h"
#include "support/TestMain.h"

#include <QDir>
#include <QTemporaryDir>

using namespace Qt::StringLiterals;

/// A file manager.
class FakeFileManager : public FakeService {
    Q_OBJECT
    Q_CLASSINFO("D-Bus Interface", "org.freedesktop.FileManager1")

public:
    FakeFileManager() : FakeService{u"org.freedesktop.FileManager1"_s, u"/org/freedesktop/FileManager1"_s} {}
    QStringList shown;

public Q_SLOTS:
    void ShowItems(const QStringList &uris, const QString &) { shown = uris; }
};

/// What is handed to the programs of the desktop.
class DiagnosticsHandover_test : public QObject {
    Q_OBJECT

    QTemporaryDir m_programs;

    // A program on PATH that writes down its arguments, a line each.
    void provide(const QString &name)
    {
        QFile program{m_programs.filePath(name)};
        QVERIFY(program.open(QIODevice::WriteOnly));
        program.write("#!/bin/sh\nprintf '%s\\n' \"$@\" > \"$0.part\" && mv \"$0.part\" \"$0.args\"\n");
        program.setPermissions(QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
    }

    QString argumentsOf(const QString &name) const
    {
        QFile written{m_programs.filePath(name + u".args"_s)};
        return written.open(QIODevice::ReadOnly) ? QString::fromUtf8(written.readAll()) : QString{};
    }

private Q_SLOTS:
    void initTestCase()
    {
        const QByteArray path = QFile::encodeName(m_programs.path()) + ":/usr/bin:/bin";
        qputenv("PATH", path);
        provide(u"xdg-open"_s);
    }

    void aFileManagerShowsTheFile()
    {
        FakeFileManager manager;
        DesktopFileManager{}.showItem(u"/data/a b.zip"_s);
        QCOMPARE(manager.shown, QStringList{u"file:///data/a%20b.zip"_s});
    }

    void withoutOneTheFolderIsOpened()
    {
        DesktopFileManager{}.showItem(u"/data/a b.zip"_s);
        QTRY_COMPARE(argumentsOf(u"xdg-open"_s), u"/data\n"_s);
    }

    void aMailTakesTheFileAlong()
    {
        provide(u"xdg-email"_s);
        XdgMail{}.compose(u"Über & out"_s, u"/data/a b.zip"_s);
        QTRY_COMPARE(argumentsOf(u"xdg-email"_s),
                     u"--utf8\n--subject\nÜber & out\n--attach\n/data/a b.zip\n"_s);
    }
};

ORVANE_TEST(DiagnosticsHandover_test)
#include "DiagnosticsHandover_test.moc"
