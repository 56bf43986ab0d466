#include "views/toast/Toast.h"

#include "gui/WindowHelp.h"
#include "support/TestMain.h"
#include "views/alerts/StoreProblemAlert.h"
#include "views/welcome/WelcomeWindow.h"

#include <QPushButton>

using namespace Qt::StringLiterals;

/// The small surfaces: toast, alert about the store and welcome window.
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

    void enterLeavesADamagedStoreAsItIs()
    {
        answerNextAlert(Qt::Key_Return);
        QVERIFY(askAboutStoreProblem(StoreProblem::Damaged, u"The store is damaged."_s) ==
                StoreProblemAnswer::Quit);
    }

    void welcomeAsksForOneThingAndSaysWhatFailed()
    {
        WelcomeWindow welcome;
        welcome.show();
        QVERIFY(QTest::qWaitForWindowActive(&welcome));
        QVERIFY(welcome.findChild<QPushButton *>(u"useOnThisComputer"_s)->hasFocus());
        auto *problem = welcome.findChild<QWidget *>(u"welcomeProblem"_s);
        QVERIFY(!problem->isVisible());
        welcome.showProblem(u"The folder cannot be written."_s);
        QVERIFY(problem->isVisible());
    }
};

ORVANE_TEST(SmallWindows_test)
#include "SmallWindows_test.moc"
