#include "views/controls/RestingCaret.h"

#include "support/ManualClock.h"
#include "support/TestMain.h"

#include <QAbstractEventDispatcher>
#include <QLineEdit>
#include <QTest>
#include <QTextEdit>

class RestingCaret_test : public QObject {
    Q_OBJECT

    /// How many timers run for the widget and what it is made of: those of its caret.
    static qsizetype timersOf(const QWidget &field)
    {
        const QAbstractEventDispatcher *dispatcher = QAbstractEventDispatcher::instance();
        qsizetype count = 0;
        for (QObject *each : field.findChildren<QObject *>())
            count += dispatcher->registeredTimers(each).size();
        return count;
    }

    template <class Field>
    static void blinksOnlyWhileSomebodyIsThere()
    {
        ManualClock clock{"2030-05-01 09:00"};
        const RestingCaret caret{clock};
        Field field;
        field.show();
        QVERIFY(QTest::qWaitForWindowActive(&field));
        field.setFocus();
        QCOMPARE(timersOf(field), 1);
        clock.advance(std::chrono::seconds{9});
        QCOMPARE(timersOf(field), 1);
        clock.advance(std::chrono::seconds{1});
        QCOMPARE(timersOf(field), 0);
        QTest::keyClick(&field, Qt::Key_A);
        QCOMPARE(timersOf(field), 1);
        clock.advance(std::chrono::minutes{1});
        QCOMPARE(timersOf(field), 0);
        QTest::mouseClick(&field, Qt::LeftButton);
        QCOMPARE(timersOf(field), 1);
    }

private Q_SLOTS:
    void standsStillInALine() { blinksOnlyWhileSomebodyIsThere<QLineEdit>(); }
    void standsStillInAText() { blinksOnlyWhileSomebodyIsThere<QTextEdit>(); }
};

ORVANE_TEST(RestingCaret_test)
#include "RestingCaret_test.moc"
