#include "views/toast/Toast.h"

#include "gui/WindowHelp.h"
#include "support/TestMain.h"
#include "views/alerts/Alert.h"
#include "views/alerts/StoreProblemAlert.h"
#include "views/welcome/WelcomeWindow.h"

#include <QPushButton>
#include <QSignalSpy>

using namespace Qt::StringLiterals;

/// The small surfaces: toast, alert and welcome window.
class SmallWindows_test : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void aLongToastFitsItsWindow()
    {
        QWidget window;
        Toast toast{window};
        window.show();
        toast.showMessage(u"A very long message "_s.repeated(50));
        QVERIFY(toast.width() < window.width());
    }

    void alertAnswersTheChosenButton()
    {
        const auto answerTo = [](Qt::Key key, const QString &button = {}) {
            answerNextAlert(key, button);
            return Alert::run({u"The store is damaged"_s, u"What now?"_s, {u"Keep"_s, u"Look"_s, u"Quit"_s}});
        };
        QCOMPARE(answerTo(Qt::Key_Return), 0);
        QCOMPARE(answerTo(Qt::Key_Escape), 2);
        QCOMPARE(answerTo(Qt::Key_Space, u"alertButton1"_s), 1);
    }

    void enterLeavesADamagedStoreAsItIs()
    {
        answerNextAlert(Qt::Key_Return);
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
        QCOMPARE(requested.count(), 1);

        auto *problem = welcome.findChild<QWidget *>(u"welcomeProblem"_s);
        QVERIFY(!problem->isVisible());
        welcome.showProblem(u"The folder cannot be written."_s);
        QVERIFY(problem->isVisible());
    }
};

ORVANE_TEST(SmallWindows_test)
#include "SmallWindows_test.moc"
