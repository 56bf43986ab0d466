#include "views/toast/Toast.h"

#include "support/TestMain.h"
#include "views/alerts/Alert.h"
#include "views/alerts/StoreProblemAlert.h"
#include "views/welcome/WelcomeWindow.h"

#include <QApplication>
#include <QDialog>
#include <QPushButton>
#include <QSignalSpy>
#include <QTimer>

using namespace Qt::StringLiterals;

/// The small surfaces: toast, alert and welcome window.
class SmallWindows_test : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void toastStandsAtTheBottomAndFollows()
    {
        QWidget window;
        window.resize(800, 600);
        Toast toast{window};
        window.show();
        toast.showMessage(u"Completed"_s, u"Undo"_s);
        QVERIFY(toast.isVisible());
        const auto isPlaced = [&] {
            return std::abs(toast.geometry().center().x() - window.rect().center().x()) <= 1 &&
                   window.height() - toast.geometry().bottom() < 40;
        };
        QVERIFY(isPlaced());
        window.resize(500, 300);
        QVERIFY(isPlaced());
        toast.showMessage(u"A very long message "_s.repeated(50));
        QVERIFY(toast.width() < window.width());
    }

    void toastActionTakesItAway()
    {
        QWidget window;
        Toast toast{window};
        window.show();
        QSignalSpy triggered{&toast, &Toast::actionTriggered};
        toast.showMessage(u"Completed"_s, u"Undo"_s);
        auto *button = toast.findChild<QPushButton *>(u"toastAction"_s);
        QCOMPARE(button->accessibleName(), u"Undo"_s);
        QTest::mouseClick(button, Qt::LeftButton);
        QCOMPARE(triggered.count(), 1);
        QVERIFY(!toast.isVisible());
        toast.showMessage(u"Nothing to undo"_s);
        QVERIFY(!button->isVisible());
    }

    void alertAnswersTheChosenButton_data()
    {
        QTest::addColumn<int>("key");
        QTest::addColumn<QString>("button");
        QTest::addColumn<int>("answer");
        QTest::newRow("Enter takes the first") << int(Qt::Key_Return) << QString{} << 0;
        QTest::newRow("Escape takes the last") << int(Qt::Key_Escape) << QString{} << 2;
        QTest::newRow("a click takes that one") << 0 << u"alertButton1"_s << 1;
    }

    void alertAnswersTheChosenButton()
    {
        QFETCH(const int, key);
        QFETCH(const QString, button);
        QTimer::singleShot(0, this, [&] {
            QWidget *box = QApplication::activeModalWidget();
            QVERIFY(box);
            if (button.isEmpty())
                QTest::keyClick(box, Qt::Key(key));
            else
                box->findChild<QPushButton *>(button)->click();
        });
        const int answer =
            Alert::run({u"The store is damaged"_s, u"What now?"_s, {u"Keep"_s, u"Look"_s, u"Quit"_s}});
        QTEST(answer, "answer");
    }

    void enterLeavesADamagedStoreAsItIs()
    {
        QTimer::singleShot(0, this, [] {
            QVERIFY(QApplication::activeModalWidget());
            QTest::keyClick(QApplication::activeModalWidget(), Qt::Key_Return);
        });
        QVERIFY(askAboutStoreProblem(StoreProblem::Damaged, u"The store is damaged."_s) ==
                StoreProblemAnswer::Quit);
    }

    void welcomeAsksForOneThing()
    {
        WelcomeWindow welcome;
        welcome.show();
        QVERIFY(QTest::qWaitForWindowActive(&welcome));
        QSignalSpy requested{&welcome, &WelcomeWindow::localAccountRequested};
        auto *button = welcome.findChild<QPushButton *>(u"useOnThisComputer"_s);
        QVERIFY(button->hasFocus());
        QTest::keyClick(button, Qt::Key_Return);
        QTest::keyClick(button, Qt::Key_Space);
        QCOMPARE(requested.count(), 2);

        auto *problem = welcome.findChild<QWidget *>(u"welcomeProblem"_s);
        QVERIFY(!problem->isVisible());
        welcome.showProblem(u"The folder cannot be written."_s);
        QVERIFY(problem->isVisible());
        welcome.showProblem({});
        QVERIFY(!problem->isVisible());
    }

    void welcomeShowsItsLastPage()
    {
        WelcomeWindow welcome;
        welcome.show();
        auto *page = new QWidget;
        welcome.addPage(page);
        QVERIFY(!page->isVisible());
        welcome.showLastPage();
        QVERIFY(page->isVisible());
    }
};

ORVANE_TEST(SmallWindows_test)
#include "SmallWindows_test.moc"
