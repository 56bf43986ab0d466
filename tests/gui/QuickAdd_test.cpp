#include "gui/ClientFixture.h"
#include "gui/WindowHelp.h"
#include "model/records/KWProject.h"
#include "model/records/KWTask.h"
#include "model/store/Connection.h"
#include "support/Answers.h"
#include "support/CaseTable.h"
#include "support/TestMain.h"
#include "views/addfield/KWNewTaskTextField.h"
#include "views/quickadd/QuickAddWindow.h"
#include "views/theme/ThemeConfigurator.h"
#include "views/welcome/WelcomeWindow.h"

#include <QAccessible>
#include <QApplication>
#include <QClipboard>
#include <QLabel>
#include <QScreen>

using namespace Qt::StringLiterals;

/// The window in which a task is typed without the main one.
class QuickAdd_test : public QObject {
    Q_OBJECT

    std::unique_ptr<ClientFixture> m_client;

    QuickAddWindow &window() { return *m_client->rooms().quickAdd().window(); }
    KWNewTaskTextField &field() { return window().field(); }
    QLabel &label(const char *name) { return *window().findChild<QLabel *>(QString::fromLatin1(name)); }
    QString line() { return label("quickAddSummary").text(); }
    QString problem()
    {
        QLabel &label = this->label("quickAddProblem");
        return label.isVisible() ? label.text() : QString{};
    }

    void open(const QString &title = {})
    {
        m_client->rooms().application().open({.cause = LaunchCause::AddTask, .title = title});
        QVERIFY(QTest::qWaitForWindowActive(&window()));
        QVERIFY(field().hasFocus());
    }
    void type(const QString &text) { QTest::keyClicks(&field(), text); }
    void press(Qt::Key key, Qt::KeyboardModifiers modifiers = {})
    {
        QTest::keyClick(&field(), key, modifiers);
    }
    // Forgets the window, as a restart of the program does.
    void restart(const LaunchRequest &launch = {}) { m_client->restart({}, launch); }
    QString savedTitles()
    {
        return joined(m_client->kit().context().models<KWTask>({}), &KWTaskModel::title);
    }

private Q_SLOTS:
    void init()
    {
        m_client = std::make_unique<ClientFixture>();
        m_client->useOnThisComputer();
    }
    void cleanup() { m_client.reset(); }

    void saysWhatItUnderstood_data() { addCaseRows("gui/quick-add.txt", 2); }
    void saysWhatItUnderstood()
    {
        QFETCH(QStringList, cells);
        QVERIFY(m_client->rooms().newTasks().add(u"Make room ~Garden"_s));
        open();
        QCOMPARE(line(), u"Inbox"_s);
        type(cells.at(0));
        QCOMPARE(line(), cells.at(1));
    }

    void countsNoMarkThatWasTakenBack()
    {
        open();
        type(u"Pay rent tomorrow"_s);
        QTextCursor caret = field().textCursor();
        caret.setPosition(int(field().pieces().constFirst().location) + 2);
        QTest::mouseClick(field().viewport(), Qt::LeftButton, {}, field().cursorRect(caret).center());
        QCOMPARE(line(), u"Inbox"_s);
        press(Qt::Key_Return);
        QCOMPARE(savedTitles(), u"Pay rent tomorrow"_s);
    }

    void enterSavesAndCloses()
    {
        m_client->openList(u"Tomorrow"_s);
        open();
        type(u"Call the venue tomorrow 5pm"_s);
        press(Qt::Key_Return);
        QVERIFY(!window().isVisible());
        QTRY_COMPARE(m_client->shownTitles(), QStringList{u"Call the venue"_s});
        open();
        QCOMPARE(field().text(), QString{});
    }

    void goesOnWithTheNextTask()
    {
        open();
        for (const Qt::KeyboardModifier held : {Qt::ControlModifier, Qt::ShiftModifier}) {
            type(u"Pay rent tomorrow"_s);
            press(Qt::Key_Return, held);
            QVERIFY(window().isVisible());
            QCOMPARE(field().text(), QString{});
            QCOMPARE(line(), u"Added: Inbox · Tomorrow"_s);
        }
        type(u"Wash up"_s);
        QCOMPARE(line(), u"Inbox"_s);
        press(Qt::Key_Enter);
        QVERIFY(!window().isVisible());
        QCOMPARE(savedTitles(), u"Pay rent Pay rent Wash up"_s);
    }

    void takesTheLastTaskBack()
    {
        const auto undo = [this] { press(Qt::Key_Z, Qt::ControlModifier); };
        open();
        type(u"Pay rent tomorrow"_s);
        press(Qt::Key_Return);
        open();
        undo();
        QCOMPARE(savedTitles(), QString{});
        QCOMPARE(field().text(), u"Pay rent tomorrow"_s);
        QCOMPARE(line(), u"Inbox · Tomorrow"_s);
        press(Qt::Key_Return, Qt::ControlModifier);
        ObjectContext &context = m_client->kit().context();
        context.fetch<KWTask>({}).first()->set(&KWTaskModel::title, u"Pay less"_s);
        QVERIFY(context.save());
        undo(); // what was changed since is not lost
        QVERIFY(!problem().isEmpty());
        QCOMPARE(savedTitles(), u"Pay less"_s);
    }

    void keepsTheTextThatCannotBeSaved()
    {
        open(u"tomorrow"_s);
        press(Qt::Key_Return);
        QVERIFY2(problem().contains(u"“tomorrow”"_s), qUtf8Printable(problem()));
        QVERIFY(window().isVisible() && window().rect().contains(label("quickAddProblem").geometry()));
        press(Qt::Key_Home);
        type(u"Pay "_s);
        QCOMPARE(problem(), QString{});

        Connection &store = **m_client->kit().manager().store().borrowConnection(); // the one lent next
        store.execute("PRAGMA query_only = 1");
        press(Qt::Key_Return);
        QVERIFY(!problem().isEmpty());
        press(Qt::Key_Escape);
        store.execute("PRAGMA query_only = 0");
        open();
        QCOMPARE(field().text(), u"Pay tomorrow"_s);
        press(Qt::Key_Return);
        QCOMPARE(savedTitles(), u"Pay"_s);
    }

    void keepsWhatWasTypedUntilTheNextOpening()
    {
        open();
        type(u"Pay rent"_s);
        press(Qt::Key_Escape);
        QVERIFY(!window().isVisible());
        restart();
        open(u"Wash\nup"_s); // does not replace it
        QCOMPARE(field().text(), u"Wash up"_s);
        open(u"Wash up"_s); // asked for again
        press(Qt::Key_Return);
        restart();
        open();
        QCOMPARE(field().text(), u"Pay rent"_s);
        press(Qt::Key_Return);
        open();
        QCOMPARE(field().text(), QString{});
        QCOMPARE(savedTitles(), u"Wash up Pay rent"_s);
    }

    // What the window was opened with is no task of its own; what was typed is one.
    void pastedLinesBecomeTasks_data()
    {
        QTest::addColumn<QString>("typed");
        QTest::addColumn<QString>("lines");
        QTest::addColumn<QString>("titles");
        QTest::addColumn<QString>("said");
        QTest::newRow("given") << QString{} << u"Milk\nBread"_s << u"Milk Bread"_s << u"2 tasks added"_s;
        QTest::newRow("typed") << u" x"_s << u"Milk\nBread"_s << u"Milk Bread Rent x"_s << u"3 tasks added"_s;
        QTest::newRow("one") << QString{} << u"Milk\n!high"_s << u"Milk"_s << u"1 task added"_s;
    }
    void pastedLinesBecomeTasks()
    {
        QFETCH(QString, typed);
        QFETCH(QString, lines);
        open(u"Rent"_s);
        type(typed);
        QApplication::clipboard()->setText(lines);
        press(Qt::Key_V, Qt::ControlModifier);
        answerNextAlert(Qt::Key_Return);
        QTRY_VERIFY(line().contains(u"added"_s));
        QTRY_VERIFY(window().isActiveWindow()); // typing goes on here
        QTEST(line(), "said");
        QTEST(savedTitles(), "titles");
        QCOMPARE(field().text(), u"Rent"_s + typed);
    }

    void givesWayToAnotherWindowWhenNothingIsTyped()
    {
        open();
        QWidget another;
        const auto goToAnother = [&another] {
            another.show();
            another.activateWindow();
            QVERIFY(QTest::qWaitForWindowActive(&another));
        };
        goToAnother();
        QVERIFY(!window().isVisible());
        open(u"Pay rent"_s);
        goToAnother();
        QVERIFY(window().isVisible());
        restart(); // as if it had been killed
        open();
        QCOMPARE(field().text(), u"Pay rent"_s);
    }

    void comesAloneWhenTheProgramIsStartedForIt()
    {
        restart({.cause = LaunchCause::AddTask, .title = u"Pay rent"_s});
        QVERIFY(!m_client->window());
        QVERIFY(window().isVisible());
        QMetaObject::invokeMethod(qApp, "lastWindowClosed");
        QVERIFY(!QApplication::quitOnLastWindowClosed());
    }

    void waitsForTheOneWhoSignsIn()
    {
        open(u"Draft of this user"_s);
        QVERIFY(m_client->kit().account().signOut());
        QVERIFY(!m_client->rooms().quickAdd().window());
        m_client->rooms().application().open({.cause = LaunchCause::AddTask, .title = u"Pay rent"_s});
        QVERIFY(!m_client->rooms().quickAdd().window());
        QVERIFY(m_client->rooms().welcomeWindow().window()->isVisible());
        QVERIFY(m_client->kit().account().signInLocally(QLocale::c()));
        QTRY_VERIFY(m_client->rooms().quickAdd().window() && window().isActiveWindow());
        QCOMPARE(field().text(), u"Pay rent"_s);
        press(Qt::Key_Return);
        open();
        QCOMPARE(field().text(), u"Draft of this user"_s);
    }

    void fitsTheScreenAndHasNames()
    {
        ThemeConfigurator::shared().setDesktopTextScale(2);
        open(u"~"_s + u"A very long name "_s.repeated(20) + u"tomorrow"_s);
        const QRect screen = window().screen()->availableGeometry();
        QVERIFY(screen.contains(window().geometry()));
        QVERIFY(window().geometry().center().y() < screen.height() / 3);
        ThemeConfigurator::shared().setDesktopTextScale(1);
        verifyControlsHaveNames(window());
        const QAccessibleInterface &line = *QAccessible::queryAccessibleInterface(&label("quickAddSummary"));
        QCOMPARE(line.role(), QAccessible::StaticText);
        QCOMPARE(line.text(QAccessible::Name), this->line());
    }
};

ORVANE_TEST(QuickAdd_test)
#include "QuickAdd_test.moc"
