#pragma once

#include "app/ports/StatusAreaPort.h"
#include "app/ports/WindowPorts.h"
#include "capture/NewTaskService.h"
#include "focus/FocusPorts.h"
#include "lists/KWTaskListService.h"
#include "model/records/KWConstants.h"

#include <QObject>
#include <QRect>

#include <memory>

class AlertPort;
class FocusPopover;
class FocusPresenter;
class MainMenu;
class OrvaneKit;
class PopoverWindow;
class KWDelayDeleteManager;
class QMenu;
class QSystemTrayIcon;

/// The item in the desktop's status area (StatusNotifierItem, or XEmbed on older desktops) with the quick
/// view behind it, or the session of focus: a press shows the page that was in front last. Its tool tip tells
/// how the session stands. Where there is no status area the item is left out, until one comes; the quick
/// view is a command of the main menu all the same. Main thread.
class StatusItem : public QObject, public StatusItemPort, public FocusPopoverPort {
    Q_OBJECT

public:
    /// What the quick view works with; all outlive it.
    struct Rooms {
        OrvaneKit &kit;
        CXClock &clock;
        NewTaskService &newTasks;
        MainMenu &menu;
        const KWDelayDeleteManager &deletes;
        StatusAreaPort &area;
        AlertPort &alerts;
        FocusPresenter &focus;
    };
    explicit StatusItem(Rooms rooms);
    ~StatusItem() override;

    void create() override;
    void remove() override;
    void refresh() override;
    void resetPopover() override;

    // FocusPopoverPort
    void showPomoPage() override { showFocusPage(KWFocusTypePomo); }
    void showStopwatchPage() override { showFocusPage(KWFocusTypeStopwatch); }
    bool isOpenWithPomoPage() const override;
    bool isOpen() const override;
    void dismiss() override;
    void showStarted() override;

    bool isShown() const { return m_icon != nullptr; }
    /// Shows the quick view beside `anchor`, in the middle of the screen where that is empty; or hides it.
    void togglePopover(const QRect &anchor = {});
    /// None until it is first shown.
    PopoverWindow *popover() const;
    FocusPopover *focusPopover() const { return m_focusPopover.get(); }
    /// Shows the page in front beside `anchor`, or hides it.
    void toggle(const QRect &anchor = {});
    void showFocus(const QRect &anchor = {});
    /// "Pomo, 16 minutes left: Write the report".
    QString toolTip() const;

Q_SIGNALS:
    /// A Pomo has begun; the sentence says so in passing.
    void focusStarted(const QString &sentence);
    /// The person wants the main window.
    void windowRequested();
    /// The person wants to type a task.
    void addRequested();
    /// The person wants to see more of a task.
    void taskRequested(const QString &taskID);

private:
    struct Popover;

    void showFocusPage(KWFocusType mode);
    void showIfPossible();
    QMenu *makeMenu();

    Rooms m_rooms;
    bool m_isWanted = false;
    std::unique_ptr<QMenu> m_contextMenu;
    std::unique_ptr<QSystemTrayIcon> m_icon;
    std::unique_ptr<Popover> m_popover;
    std::unique_ptr<FocusPopover> m_focusPopover;
    bool m_hasFocusInFront = false;
    QRect m_anchor; // of what was shown last
    QString m_toolTip;
};
