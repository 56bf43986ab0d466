#include "gui/ClientFixture.h"
#include "gui/WindowHelp.h"
#include "model/events/NotificationNames.h"
#include "model/records/KWSmartProject.h"
#include "model/records/KWTask.h"
#include "model/settings/ClockFormat.h"
#include "model/store/StoreBackups.h"
#include "support/CaseTable.h"
#include "support/TestMain.h"
#include "views/addfield/KWNewTaskTextField.h"
#include "views/main/MainWindow.h"
#include "views/preferences/PreferencesWindow.h"
#include "views/tasklist/TaskListPane.h"
#include "views/theme/ThemeConfigurator.h"
#include "views/wording/DateWording.h"

#include <QAbstractButton>
#include <QAction>
#include <QApplication>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QTimeEdit>

using namespace Qt::StringLiterals;

/// The preferences window: what is chosen is saved at once, and the rest of the program follows.
class Preferences_test : public QObject {
    Q_OBJECT

    std::unique_ptr<ClientFixture> m_client;

    PreferencesWindow &window() { return *m_client->rooms().preferences().window(); }
    template <class Widget>
    Widget &find(const char *name)
    {
        auto *found = window().findChild<Widget *>(QLatin1StringView{name});
        if (!found) qFatal("there is no %s", name);
        return *found;
    }
    // As a person does: by the keyboard.
    void choose(const char *name, const QString &text)
    {
        auto &box = find<QComboBox>(name);
        QVERIFY2(box.findText(text) >= 0, qPrintable(text));
        window().activateWindow();
        box.setFocus();
        QTest::keyClick(&box, Qt::Key_Home);
        while (box.currentText() != text)
            QTest::keyClick(&box, Qt::Key_Down);
    }
    QString message() { return find<QLabel>("preferencesMessage").text(); }
    const KWUserSettingsModel &settings() { return m_client->kit().account().userSettings(); }
    KWTaskModel added(const QString &text) { return *m_client->rooms().newTasks().add(text); }

private Q_SLOTS:
    void init()
    {
        m_client = std::make_unique<ClientFixture>();
        m_client->useOnThisComputer();
        m_client->rooms().menu().action(MenuCommand::Preferences).trigger();
        QVERIFY(window().isVisible());
    }
    void cleanup()
    {
        m_client.reset();
        ThemeConfigurator::shared().setMode(ThemeConfigurator::Mode::Light);
        ClockFormat::choose({});
    }

    void everyControlHasANameAndAnswersToTheKeyboard()
    {
        auto &pages = find<QListWidget>("preferencesPages");
        QVERIFY(pages.count() > 2);
        for (int row = 0; row < pages.count(); ++row) {
            pages.setCurrentRow(row);
            verifyControlsHaveNames(window());
        }
        QTest::keyClick(&window(), Qt::Key_Escape);
        QVERIFY(!window().isVisible());
    }

    void aThemeIsPutOnAtOnce()
    {
        ColorScheme told = ColorScheme::Light;
        const auto observation = m_client->kit().center().addObserver(
            KWThemeDidChangeNotification,
            [&told](const KWNotification &) { told = Theme::current().scheme; });
        choose("theme", u"Dark"_s);
        QCOMPARE(told, ColorScheme::Dark);
        QCOMPARE(Theme::current().scheme, ColorScheme::Dark);
        QCOMPARE(m_client->kit().defaults().value(Settings::theme), u"dark"_s);
    }

    void whatCannotBeKeptIsSaid()
    {
        const QString file = m_client->kit().folders().config + u"/standard.ini"_s;
        QFile::remove(file);
        QVERIFY(QDir{}.mkpath(file));
        QTest::keyClick(&find<QComboBox>("theme"), Qt::Key_Down);
        QVERIFY(message().contains(u"cannot be written"_s));
        QCOMPARE(find<QComboBox>("theme").currentText(), u"As the desktop"_s);
        QVERIFY(QDir{}.rmdir(file));
    }

    void newTasksGetWhatWasChosen()
    {
        choose("newTaskPriority", u"Medium"_s);
        choose("newTaskDate", u"Tomorrow"_s);
        choose("newTaskPosition", u"At the end"_s);
        choose("allDayReminder", u"The day before at 09:00"_s);
        const std::int64_t before = added(u"Feed the cat"_s).sortOrder;
        const KWTaskModel task = added(u"Water the seedlings"_s);
        QCOMPARE(task.priority, KWTaskPriorityMedium);
        QCOMPARE(*task.startDate, at("2026-11-22 00:00"));
        QCOMPARE(settings().allDayReminders, QStringList{u"TRIGGER:-P0DT15H0M0S"_s});
        QCOMPARE(added(u"Repot the fig tomorrow"_s).reminders, settings().allDayReminders);
        QVERIFY(task.sortOrder > before);
    }

    void recognitionFollowsInAFieldWithText()
    {
        const QString text = u"Call the bank tomorrow #money"_s;
        KWNewTaskTextField &field = m_client->window()->listPane().addField();
        field.setText(text);
        const auto marked = [&field] {
            QStringList texts;
            for (const RecognizedPiece &each : field.pieces())
                texts.append(each.text);
            return texts;
        };
        window().showPage(u"newTasksPage"_s);
        const auto press = [this](const char *name) {
            QTest::keyClick(&find<QAbstractButton>(name), Qt::Key_Space);
        };
        const QStringList both{u"tomorrow"_s, u"#money"_s};
        QCOMPARE(marked(), both);
        press("recognisesDates");
        QCOMPARE(marked(), QStringList{u"#money"_s});
        QVERIFY(!added(text).startDate);
        press("recognisesDates");
        QCOMPARE(marked(), both);

        QCOMPARE(added(text).title, u"Call the bank"_s);
        press("removesDate");
        QCOMPARE(added(text).title, u"Call the bank tomorrow"_s);
        press("removesTag");
        const KWTaskModel task = added(text);
        QCOMPARE(task.title, text);
        QCOMPARE(task.tags, QStringList{u"money"_s});
        QCOMPARE(*task.startDate, at("2026-11-22 00:00"));

        m_client->restart();
        QCOMPARE(added(text).title, text);
    }

    void typedTimesAndWeeksFollow()
    {
        choose("firstWeekday", u"Saturday"_s);
        QCOMPARE(settings().firstWeekday, 7);
        auto &morning = find<QTimeEdit>("smartTimeForMorning");
        morning.setTime({7, 30});
        QCOMPARE(*added(u"Run tomorrow morning"_s).startDate, at("2026-11-22 07:30"));
        choose("clockFormat", u"12 hours"_s);
        QCOMPARE(DateWording::timeOfDay(LocalTime{std::chrono::hours{17}}, QLocale::c()), u"5:00 PM"_s);
        QCOMPARE(find<QTimeEdit>("smartTimeForMorning").displayFormat(), u"h:mm AP"_s);
    }

    void smartListsComeAndGo()
    {
        const auto isInSidebar = [this](const KWSmartProject &smart) {
            return m_client->rooms().sidebar().dataService().nodeFor(
                       KWListIdentifier::smartProject(smart.identifier())) != nullptr;
        };
        QVERIFY(!isInSidebar(KWSmartProject::all()));
        choose("smart.all", u"Shown"_s);
        QVERIFY(isInSidebar(KWSmartProject::all()));
        choose("smart.tomorrow", u"Hidden"_s);
        QVERIFY(!isInSidebar(KWSmartProject::tomorrow()));
        choose("smart.tomorrow", u"Shown if not empty"_s);
        added(u"Feed the cat tomorrow"_s);
        QTRY_VERIFY(isInSidebar(KWSmartProject::tomorrow()));
    }

    void keysAreTakenOrRefused()
    {
        window().showPage(u"shortcutsPage"_s);
        auto &field = find<QWidget>("setDate");
        auto &keys = *field.findChild<QLineEdit *>();
        const auto shortcut = [this] {
            return m_client->rooms().menu().action(MenuCommand::SetDate).shortcut().toString();
        };
        for (const CaseRow &each : readCases("gui/key-strokes.txt", 3)) {
            QTest::keySequence(&keys, QKeySequence{each.cells[0]});
            QCOMPARE(keys.text(), each.cells[1]);
            QCOMPARE(shortcut(), each.cells[1]);
            QCOMPARE(find<QLabel>("preferencesMessage").isHidden(), each.cells[2].isEmpty());
            QVERIFY2(each.cells[2].isEmpty() || message().contains(each.cells[2]), qPrintable(message()));
        }
        m_client->restart();
        QCOMPARE(shortcut(), u"Alt+Del"_s);
        m_client->rooms().menu().action(MenuCommand::ShowShortcuts).trigger();
        auto &toDefault = *find<QWidget>("setDate").findChild<QAbstractButton *>(u"defaultKeys"_s);
        QVERIFY(toDefault.isVisible());
        toDefault.click();
        QCOMPARE(shortcut(), u"Ctrl+D"_s);
        QVERIFY(toDefault.isHidden());
        QTest::keyClick(find<QWidget>("setDate").findChild<QLineEdit *>(), Qt::Key_F5);
        find<QAbstractButton>("resetShortcuts").click();
        QCOMPARE(shortcut(), u"Ctrl+D"_s);
    }

    void aBackupIsBroughtBackOnlyWhenSure()
    {
        OrvaneKit &kit = m_client->kit();
        const StoreBackups backups{kit.folders()};
        QVERIFY(backups.makeDaily(kit.context().connection(), m_client->clock.today()));
        window().close();
        m_client->rooms().menu().action(MenuCommand::Preferences).trigger();
        window().showPage(u"dataPage"_s);
        auto &restore = find<QPushButton>("restoreBackup");
        find<QListWidget>("backups").setCurrentRow(0);
        answerNextAlert(Qt::Key_Return);
        restore.click();
        QCOMPARE(kit.defaults().value(Settings::restoreAtStart), QString{});
        answerNextAlert(Qt::Key_Space, u"alertButton0"_s);
        restore.click();
        QCOMPARE(kit.defaults().value(Settings::restoreAtStart), backups.list().constFirst().path);
    }
};

ORVANE_TEST(Preferences_test)
#include "Preferences_test.moc"
