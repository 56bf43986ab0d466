#include "app/ShortcutConfiguration.h"

#include "app/MenuTable.h"
#include "model/settings/KWUserDefaults.h"
#include "support/Answers.h"
#include "support/CaseTable.h"
#include "support/TestMain.h"

#include <QDir>
#include <QTemporaryDir>

#include <set>

using namespace Qt::StringLiterals;

class ShortcutConfiguration_test : public QObject {
    Q_OBJECT

    QTemporaryDir m_folder;

private Q_SLOTS:
    void defaultsAreForNoTypingAndUnlikeEachOther()
    {
        KWUserDefaults defaults{m_folder.filePath(u"fresh"_s)};
        const ShortcutConfiguration shortcuts{defaults};
        std::set<QString> seen;
        for (const MenuEntry &each : menuEntries()) {
            const QString keys = shortcuts.keysOf(each.command);
            QVERIFY2(!each.hasSlot() || (!keys.isEmpty() && !ShortcutConfiguration::isForTyping(keys)),
                     each.name);
            QVERIFY2(keys.isEmpty() || seen.insert(keys).second, each.name);
        }
        QVERIFY(shortcuts.isReset());
    }

    void takesOrRefuses_data() { addCaseRows("app/shortcuts.txt", 2); }
    void takesOrRefuses()
    {
        QFETCH(QStringList, cells);
        KWUserDefaults defaults{m_folder.filePath(u"taking"_s)};
        ShortcutConfiguration shortcuts{defaults};
        QVERIFY(shortcuts.reset());
        const Result<void> set = shortcuts.setKeys(MenuCommand::SetDate, cells.at(0));
        if (cells.at(1) == u"taken") {
            QVERIFY(set);
            QCOMPARE(ShortcutConfiguration{defaults}.keysOf(MenuCommand::SetDate), cells.at(0));
        } else {
            QVERIFY(isRefused(set, cells.at(1)));
            QCOMPARE(shortcuts.keysOf(MenuCommand::SetDate), u"Ctrl+D"_s);
        }
    }

    void takesNothingBrokenFromTheFile()
    {
        KWUserDefaults defaults{m_folder.filePath(u"broken"_s)};
        const auto store = [&defaults](MenuCommand command, const QString &keys) {
            defaults.set(Settings::keyboardShortcut, keys, QString::number(int(command)));
        };
        store(MenuCommand::SetToday, u"x"_s);
        store(MenuCommand::SetTomorrow, u"Ctrl+Q"_s);
        store(MenuCommand::SetNextWeek, u"Ctrl+P"_s); // the default of another
        store(MenuCommand::Print, u""_s);
        ShortcutConfiguration shortcuts{defaults};
        for (const MenuCommand each : {MenuCommand::SetToday, MenuCommand::SetTomorrow, MenuCommand::Print})
            QCOMPARE(shortcuts.keysOf(each), QString{});
        QCOMPARE(shortcuts.commandWith(u"Ctrl+P"_s), MenuCommand::SetNextWeek);
        QVERIFY(shortcuts.reset() && shortcuts.isReset());
        QCOMPARE(shortcuts.keysOf(MenuCommand::Print), u"Ctrl+P"_s);
    }

    void staysAsItWasWhenItCannotBeSaved()
    {
        const QString folder = m_folder.filePath(u"readOnly"_s);
        KWUserDefaults defaults{folder};
        ShortcutConfiguration shortcuts{defaults};
        QVERIFY(shortcuts.setKeys(MenuCommand::SetDate, u"Ctrl+Alt+D"_s));
        QVERIFY(QFile::remove(folder + u"/standard.ini"_s) && QDir{}.mkpath(folder + u"/standard.ini"_s));
        QVERIFY(!shortcuts.setKeys(MenuCommand::SetDate, u"Ctrl+Alt+E"_s) && !shortcuts.reset());
        QCOMPARE(shortcuts.keysOf(MenuCommand::SetDate), u"Ctrl+Alt+D"_s);
    }
};

ORVANE_TEST(ShortcutConfiguration_test)
#include "ShortcutConfiguration_test.moc"
