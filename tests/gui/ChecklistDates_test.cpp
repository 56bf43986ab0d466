#include "gui/MainWindowHands.h"
#include "gui/WindowHelp.h"
#include "model/records/KWChecklistItem.h"
#include "model/records/KWProject.h"
#include "model/records/KWTask.h"
#include "model/store/KWTaskEditor.h"
#include "support/TestMain.h"
#include "views/controls/CommittingTextEdit.h"
#include "views/datepicker/SchedulePicker.h"
#include "views/main/MainWindow.h"

#include <QAbstractButton>
#include <QAction>
#include <QApplication>
#include <QContextMenuEvent>
#include <QLineEdit>
#include <QMenu>

using namespace Qt::StringLiterals;

/// Checklist items get their dates in the detail, in the real window.
class ChecklistDates_test : public QObject, MainWindowHands {
    Q_OBJECT

    QString m_taskID;
    QString m_itemID;

    KWChecklistItemModel item(const QString &sid)
    {
        return m_client->kit().context().find<KWChecklistItem>(sid)->model();
    }
    bool isTaskDated()
    {
        return m_client->kit().context().find<KWTask>(m_taskID)->model().startDate.has_value();
    }
    CommittingTextEdit &editor() { return m_client->find<CommittingTextEdit>("checklistItemTitle"); }
    QAbstractButton &date() { return m_client->find<QAbstractButton>("checklistItemDate"); }
    QString toast() { return m_client->find<QWidget>("toast").accessibleName(); }
    SchedulePicker *picker()
    {
        QApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        return m_client->window()->findChild<SchedulePicker *>();
    }
    void pressInPicker(Qt::Key key)
    {
        QVERIFY(picker() && picker()->focusWidget());
        QTest::keyClick(picker()->focusWidget(), key);
    }
    void chooseInItemMenu(const QString &entry)
    {
        QContextMenuEvent event{QContextMenuEvent::Keyboard, {}, {}};
        QApplication::sendEvent(&editor(), &event);
        auto *menu = editor().findChild<QMenu *>(u"checklistItemMenu"_s);
        QVERIFY(menu);
        for (QAction *each : menu->actions())
            if (each->text() == entry && each->isEnabled()) each->trigger();
        menu->close();
    }
    void openDateFrame()
    {
        editor().setFocus();
        m_client->press(Qt::Key_D, Qt::ControlModifier);
    }

private Q_SLOTS:
    void init()
    {
        startClient(); // on Saturday the 21st
        m_taskID = m_client->rooms().newTasks().add(u"Travel"_s)->sid;
        m_itemID = *KWTaskEditor{m_client->kit().manager()}.addItem(m_taskID, {}, u"Passport"_s);
        m_client->openList(u"Inbox"_s);
        list().selectTask(m_taskID);
    }
    void cleanup() { endClient(); }

    void getsDayAndTimeByKeys()
    {
        editor().setFocus();
        m_client->type(u"My "_s);
        openDateFrame();
        pressInPicker(Qt::Key_Right);
        auto *time = picker()->findChild<QLineEdit *>(u"startTime"_s);
        time->setFocus();
        QTest::keyClicks(time, u"17"_s);
        for (const auto &row : {u"endTime"_s, u"daysLater"_s, u"reminderMenu"_s, u"repeat"_s})
            QVERIFY(!picker()->findChild<QWidget *>(row)->isVisible());
        verifyControlsHaveNames(*picker());
        pressInPicker(Qt::Key_Return);
        QVERIFY(!picker());

        QCOMPARE(item(m_itemID).startDate, at("2026-11-22 17:00"));
        QVERIFY(!item(m_itemID).isAllDay && !isTaskDated());
        QCOMPARE(editor().text(), u"My Passport"_s);
        QCOMPARE(date().text(), u"Tomorrow 17:00"_s);
        QVERIFY(toast().contains(u"Date: Tomorrow"));
        verifyControlsHaveNames(*m_client->window());

        m_client->press(Qt::Key_T, Qt::ControlModifier); // the item still has the keyboard
        QCOMPARE(item(m_itemID).startDate, at("2026-11-21 17:00"));
        QVERIFY(!isTaskDated());
        m_client->openList(u"Today"_s);
        QTRY_COMPARE(shown(), u"[Today] My Passport"_s);
        goTo(taskRow(u"My Passport"_s));
        undo();
        QTRY_COMPARE(shown(), QString{});
        undo();
        QVERIFY(!item(m_itemID).startDate);
        QCOMPARE(item(m_itemID).title, u"My Passport"_s);
    }

    void losesItsDateByItsMenu()
    {
        editor().setFocus();
        m_client->press(Qt::Key_T, Qt::ControlModifier);
        QVERIFY(item(m_itemID).isAllDay);
        chooseInItemMenu(u"No Date"_s);
        QVERIFY(!item(m_itemID).startDate && !item(m_itemID).isAllDay);
        QCOMPARE(date().text(), QString{});
        undo();
        QCOMPARE(item(m_itemID).startDate, at("2026-11-21 00:00"));
        QTest::mouseClick(&date(), Qt::LeftButton);
        pressInPicker(Qt::Key_Escape);
        QCOMPARE(item(m_itemID).startDate, at("2026-11-21 00:00"));
    }

    void oneThatHasJustBeenTypedIsKeptFirst()
    {
        QTest::mouseClick(&m_client->find<QWidget>("addChecklistItem"), Qt::LeftButton);
        m_client->type(u"Visa"_s);
        m_client->press(Qt::Key_D, Qt::ControlModifier);
        pressInPicker(Qt::Key_Return);
        const auto items = KWTaskEditor{m_client->kit().manager()}.read(m_taskID)->items;
        QCOMPARE(items.size(), 2);
        QCOMPARE(items.last().title, u"Visa"_s);
        QCOMPARE(items.last().startDate, at("2026-11-21 00:00"));
        QVERIFY(!items.first().startDate);
    }

    void isRefusedInAListThatMayOnlyBeRead()
    {
        const KWTaskModel task = m_client->kit().context().find<KWTask>(m_taskID)->model();
        m_client->kit()
            .context()
            .find<KWProject>(task.projectID)
            ->set(&KWProjectModel::permission, KWProjectPermissionRead);
        QVERIFY(m_client->kit().context().save());
        QVERIFY(!date().isVisible()); // nothing offers what is refused
        openDateFrame();
        QVERIFY(!picker());
        QVERIFY(toast().contains(u"may only be read"));
        m_client->press(Qt::Key_T, Qt::ControlModifier);
        QVERIFY(!item(m_itemID).startDate && !isTaskDated());
    }
};

ORVANE_TEST(ChecklistDates_test)
#include "ChecklistDates_test.moc"
