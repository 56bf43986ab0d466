#include "platform/DesktopFileManager.h"
#include "platform/XdgMail.h"

#include "platform/FakeService.h"
#include "support/Files.h"
#include "support/TestMain.h"

#include <QFile>
#include <QTemporaryDir>

using namespace Qt::StringLiterals;

/// What is handed to the programs of the desktop.
class DiagnosticsHandover_test : public QObject {
    Q_OBJECT

    QTemporaryDir m_programs;

    // A program on PATH that writes down its arguments, a line each.
    void provide(const QString &name)
    {
        const QString program = m_programs.filePath(name);
        write(program, "#!/bin/sh\nprintf '%s\\n' \"$@\" > \"$0.part\" && mv \"$0.part\" \"$0.args\"\n");
        QFile::setPermissions(program, QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
    }

    QString argumentsOf(const QString &name) const
    {
        return QString::fromUtf8(bytesOf(m_programs.filePath(name + u".args"_s)));
    }

private Q_SLOTS:
    void initTestCase()
    {
        qputenv("PATH", QFile::encodeName(m_programs.path()) + ":/usr/bin:/bin");
        provide(u"xdg-open"_s);
    }

    void aFileManagerShowsTheFile()
    {
        QVariantList shown;
        const FakeService manager{
            u"org.freedesktop.FileManager1"_s, u"/org/freedesktop/FileManager1"_s,
            [&shown](const QString &call, const QVariantList &arguments) -> FakeService::Answer {
                if (call != u"org.freedesktop.FileManager1.ShowItems(ass)") return {};
                shown = arguments;
                return QVariantList{};
            }};
        DesktopFileManager{}.showItem(u"/data/a b.zip"_s);
        QCOMPARE(shown.value(0).toStringList(), QStringList{u"file:///data/a%20b.zip"_s});
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
