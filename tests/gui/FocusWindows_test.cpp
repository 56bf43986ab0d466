#include "gui/FocusHands.h"
#include "gui/WindowHelp.h"
#include "model/settings/KWPomoSettingsManager.h"
#include "support/TestMain.h"
#include "views/focus/FocusPanel.h"
#include "views/focus/FocusWindow.h"
#include "views/main/MainWindow.h"
#include "views/preferences/PreferencesWindow.h"
#include "views/statusitem/FocusPopover.h"
#include "views/statusitem/PopoverWindow.h"

#include <QAbstractButton>
#include <QSpinBox>

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

/// Focus away from its page: the popover of the status item, the small window, the preferences.
class FocusWindows_test : public QObject, private FocusHands {
    Q_OBJECT

    StatusItem &item() { return m_client->rooms().statusItem(); }
    KWFocusRunningManager &manager() { return m_client->rooms().focus().manager(); }
    FocusWindow &small() { return *m_client->rooms().focusWindow().window(); }
    template <class Widget>
    Widget &preference(const char *name)
    {
        auto *found = m_client->rooms().preferences().window()->findChild<Widget *>(QLatin1StringView{name});
        if (!found) qFatal("there is no %s", name);
        return *found;
    }
    int pomoGoal() { return m_client->rooms().focus().pomo().settings().dailyPomoGoal; }
    int focusGoal() { return m_client->rooms().focus().pomo().settings().dailyFocusGoal; }

private Q_SLOTS:
    void init() { openFocus(); }
    void cleanup() { endClient(); }

    void thePopoverRunsTheSession()
    {
        focusOn(u"plants"_s);
        item().showFocus();
        FocusPopover &popover = *item().focusPopover();
        QVERIFY(QTest::qWaitForWindowActive(&popover));
        verifyControlsHaveNames(popover);
        QVERIFY(item().isOpenWithPomoPage());
        QTest::keyClick(&popover, Qt::Key_Space);
        QVERIFY(manager().isPomoFocusing());
        QCOMPARE(item().toolTip(), u"Pomo, 25m left: Water the plants"_s);
        wait(61s);
        QCOMPARE(item().toolTip(), u"Pomo, 24m left: Water the plants"_s);
        QTest::mouseClick(popover.findChild<QWidget *>(u"showToday"_s), Qt::LeftButton);
        QVERIFY(!popover.isVisible() && item().popover()->isVisible());
        manager().startStopWatch();
        QVERIFY(popover.isVisible() && !item().popover()->isVisible());
        QVERIFY(!item().isOpenWithPomoPage());
        QCOMPARE(popover.panel().mode(), KWFocusTypeStopwatch);
        QTest::keyClick(&popover, Qt::Key_Escape);
        QVERIFY(!item().isOpen());
        QVERIFY(manager().isStopWatchFocusing());
    }

    void theSmallWindowIsDraggedAndKeepsItsPlace()
    {
        m_client->rooms().menu().action(MenuCommand::ShowFocusWindow).trigger();
        QVERIFY(small().isVisible());
        verifyControlsHaveNames(small());
        const QPoint before = small().pos();
        QTest::mousePress(&small(), Qt::LeftButton, {}, {4, 4});
        QTest::mouseMove(&small(), {-36, 24});
        QTest::mouseRelease(&small(), Qt::LeftButton);
        const QPoint after = small().pos();
        QVERIFY(after != before);
        QTest::keyClick(&small(), Qt::Key_Space);
        QTest::keyClick(&small(), Qt::Key_Escape);
        QVERIFY(!small().isVisible());
        QVERIFY(manager().isPomoFocusing());
        m_client->restart();
        m_client->rooms().focusWindow().show();
        QCOMPARE(small().pos(), after);
    }

    void preferencesKeepTheirRanges()
    {
        m_client->rooms().preferences().show(u"focus"_s);
        for (const auto &[name, least, most] : {std::tuple{"pomoDuration", 5, MAX_POMO_DURATION_MINUTES},
                                                {"shortBreakDuration", 1, 60},
                                                {"longBreakDuration", 1, 60},
                                                {"longBreakInterval", 1, 60},
                                                {"autoPomodoroCycle", 2, 10},
                                                {"dailyPomoGoal", 0, 20},
                                                {"dailyFocusHours", 0, 24},
                                                {"dailyFocusMinutes", 0, 1440}}) {
            const auto &number = preference<QSpinBox>(name);
            QCOMPARE(number.minimum(), least);
            QCOMPARE(number.maximum(), most);
        }
        preference<QSpinBox>("pomoDuration").setValue(50);
        QCOMPARE(time(), u"50:00"_s);
        preference<QSpinBox>("dailyPomoGoal").setValue(8);
        QCOMPARE(pomoGoal(), 8);
        preference<QSpinBox>("dailyFocusHours").setValue(3);
        preference<QSpinBox>("dailyFocusMinutes").setValue(1440);
        QCOMPARE(focusGoal(), 3 * 60 + 1440);
        QTRY_COMPARE(m_client->find<QWidget>("focusPomosToday").accessibleName(), u"0 Pomos, goal 8"_s);
    }

    void pomosInARowNeedBothSwitches()
    {
        m_client->rooms().preferences().show(u"focus"_s);
        const auto &cycle = preference<QSpinBox>("autoPomodoroCycle");
        QVERIFY(!cycle.isEnabled());
        preference<QAbstractButton>("isAutoPomo").click();
        QVERIFY(!cycle.isEnabled());
        preference<QAbstractButton>("isAutoBreak").click();
        QVERIFY(cycle.isEnabled());
        preference<QAbstractButton>("isAutoPomo").click();
        QVERIFY(!cycle.isEnabled());
    }
};

ORVANE_TEST(FocusWindows_test)
#include "FocusWindows_test.moc"
