#include "focus/FocusRecordEditor.h"
#include "gui/FocusHands.h"
#include "support/TestMain.h"
#include "views/focus/FocusRecordList.h"
#include "views/focus/FocusSideView.h"
#include "views/main/MainWindow.h"

#include <QAbstractButton>
#include <QContextMenuEvent>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>

using namespace Qt::StringLiterals;

/// The records beside the session: added, changed and deleted by hand.
class FocusRecords_test : public QObject, private FocusHands {
    Q_OBJECT

    FocusRecordList &list() { return m_client->window()->focusSide().records(); }
    QLineEdit &field(const char *name) { return over<QLineEdit>("focusRecordDialog", name); }
    QString problem() { return over<QLabel>("focusRecordDialog", "focusRecordProblem").text(); }
    void click(const char *button) { QTest::mouseClick(&m_client->find<QWidget>(button), Qt::LeftButton); }
    void save() { QTest::mouseClick(&over<QWidget>("focusRecordDialog", "saveFocusRecord"), Qt::LeftButton); }
    void add(const QString &from, const QString &to)
    {
        click("addFocusRecord");
        typeInto(field("focusRecordStart"), from);
        typeInto(field("focusRecordEnd"), to);
        save();
    }

private Q_SLOTS:
    void init()
    {
        openFocus();
        focusOn(u"plants"_s);
    }
    void cleanup() { endClient(); }

    void aRecordIsAddedAndTakenBack()
    {
        add(u"8:10"_s, u"8:40"_s);
        QVERIFY(!isOpen("focusRecordDialog"));
        QTRY_COMPARE(records(), u"Water the plants 08:10 – 08:40"_s);
        QTRY_COMPARE(m_client->find<QWidget>("focusTimeToday").accessibleName(), u"30 minutes focused"_s);
        takeBack();
        QTRY_COMPARE(records(), QString{});
    }

    void whatIsWrongIsSaidAndStays()
    {
        add(u"8:10"_s, u"soon"_s);
        QCOMPARE(problem(), u"“soon” is no time of day."_s);
        QCOMPARE(field("focusRecordEnd").text(), u"soon"_s);
        typeInto(field("focusRecordEnd"), u"11:30"_s); // still to come
        save();
        QVERIFY(isOpen("focusRecordDialog"));
        QVERIFY(!problem().isEmpty() && problem() != u"“soon” is no time of day."_s);
        typeInto(field("focusRecordEnd"), u"8:40"_s);
        save();
        QVERIFY(!isOpen("focusRecordDialog"));
        QTRY_COMPARE(records(), u"Water the plants 08:10 – 08:40"_s);
    }

    void twoRecordsDoNotOverlap()
    {
        add(u"8:10"_s, u"8:40"_s);
        QTRY_COMPARE(list().model()->rowCount(), 1);
        comeBack();
        add(u"8:30"_s, u"8:50"_s);
        QVERIFY(isOpen("focusRecordDialog"));
        QVERIFY(!problem().isEmpty());
    }

    void enterChangesARecordAndDeleteDeletesIt()
    {
        add(u"8:10"_s, u"8:40"_s);
        QTRY_COMPARE(list().model()->rowCount(), 1);
        comeBack();
        list().setFocus();
        QTest::keyClick(&list(), Qt::Key_Return);
        typeInto(field("focusRecordEnd"), u"8:20"_s);
        QTest::keyClick(&field("focusRecordEnd"), Qt::Key_Return);
        QTRY_COMPARE(records(), u"Water the plants 08:10 – 08:20"_s);
        comeBack();
        list().setFocus();
        QTest::keyClick(&list(), Qt::Key_Delete);
        QTRY_COMPARE(records(), QString{});
        QCOMPARE(toastText(), u"Record deleted"_s);
        takeBack();
        QTRY_COMPARE(records(), u"Water the plants 08:10 – 08:20"_s);
    }

    void theMenuGoesToTheTask()
    {
        add(u"8:10"_s, u"8:40"_s);
        QTRY_COMPARE(list().model()->rowCount(), 1);
        comeBack();
        list().setFocus();
        QContextMenuEvent event{QContextMenuEvent::Keyboard, {}, {}};
        QApplication::sendEvent(list().viewport(), &event);
        auto *menu = list().findChild<QMenu *>(u"focusRecordMenu"_s);
        QVERIFY(menu);
        for (QAction *each : menu->actions())
            if (each->text() == u"Go to Task") each->trigger();
        QVERIFY(!m_client->window()->isFocusShown());
        QCOMPARE(m_client->window()->listPane().list().currentTask(), idOf(u"Water the plants"_s));
    }

    void theStatisticsTurnDayWeekAndMonth()
    {
        add(u"8:10"_s, u"8:40"_s);
        const auto total = [this] { return m_client->find<QLabel>("focusTotal").text(); };
        const auto range = [this] { return m_client->find<QLabel>("focusRange").text(); };
        QTRY_COMPARE(total(), u"30m in all, 1 Pomo"_s);
        comeBack();
        m_client->find<QWidget>("focusPeriods").findChildren<QAbstractButton *>().last()->click();
        QTRY_COMPARE(range(), u"November 2026"_s);
        auto &before = m_client->find<QAbstractButton>("focusPeriodBefore");
        QCOMPARE(before.accessibleName(), u"Month before"_s);
        before.click();
        QTRY_COMPARE(range(), u"October 2026"_s);
        QCOMPARE(total(), u"0m in all, 0 Pomos"_s);
        QVERIFY(m_client->find<QWidget>("focusPeriodAfter").isEnabled());
    }
};

ORVANE_TEST(FocusRecords_test)
#include "FocusRecords_test.moc"
