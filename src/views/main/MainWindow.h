#pragma once

#include "app/ports/ToastPort.h"
#include "corvexkit/time/CXClock.h"

#include <QWidget>

#include <functional>
#include <optional>

class CalendarPane;
class FocusPane;
class FocusSideView;
class HabitDetailView;
class HabitPane;
class KWUserDefaults;
class MainMenu;
class QSplitter;
class QStackedWidget;
class SheetShadow;
class SidebarView;
class WebPane;
class TaskDetailView;
class TaskListPane;
class Toast;

/// The window: sidebar, list and detail side by side; in a narrow one, and while the calendar stands in place
/// of the list, the detail is a sheet that Escape, its button or a click beside it closes. Size and columns
/// are remembered. It arranges; the controllers of its columns fill them.
class MainWindow : public QWidget {
    Q_OBJECT

public:
    MainWindow(CXClock &clock, KWUserDefaults &defaults);
    ~MainWindow() override;

    /// The menu behind the button, the bar that Alt shows, and the keys of its commands.
    void setMenu(MainMenu &menu);

    SidebarView &sidebar() { return *m_sidebar; }
    TaskListPane &listPane() { return *m_listPane; }
    CalendarPane &calendarPane() { return *m_calendarPane; }
    TaskDetailView &detail() { return *m_detail; }
    HabitPane &habitPane() { return *m_habitPane; }
    HabitDetailView &habitDetail() { return *m_habitDetail; }
    FocusPane &focusPane() { return *m_focusPane; }
    FocusSideView &focusSide() { return *m_focusSide; }
    WebPane &summaryPane() { return *m_summaryPane; }
    /// What stands in the middle now.
    QWidget &middle() const;
    Toast &toast() { return *m_toast; }

    /// In place of the list and the detail beside it.
    void setCalendarShown(bool isShown);
    bool isCalendarShown() const;
    /// The habits in place of the list, and the detail of one in place of the task's.
    void setHabitsShown(bool isShown);
    bool isHabitsShown() const;
    /// The session of focus in place of the list, and its records in place of the detail.
    void setFocusShown(bool isShown);
    bool isFocusShown() const;
    /// The summary in place of the list.
    void setSummaryShown(bool isShown);
    bool isSummaryShown() const;

    /// Brings the detail into view, and the keyboard into it.
    void openDetail();
    void closeDetailSheet();
    /// A message with an action, one Tab behind the add field; it goes after a few seconds, but not while
    /// the keyboard is in it.
    void showAction(const QString &message, const QString &action, const std::function<void()> &perform);
    /// The same, with an action that takes something back.
    ToastPort::Offer showUndo(const QString &message, const std::function<void()> &undo);
    /// Lets Ctrl+Z take something back that the person sees anyway; nothing is said about it before.
    void addUndo(const QString &message, const std::function<void()> &undo);
    /// Takes the message away, if it is still there; `later` goes on taking back what it was about.
    void endUndo(ToastPort::Offer offer, std::function<void()> later);
    bool isUndoHeld(ToastPort::Offer offer) const;
    void showMessage(const QString &message);
    /// Says what `work` fails to do, by its signal with a sentence, until it succeeds or as long as any
    /// message.
    template <class Work, class Failed, class Done>
    void sayFailuresOf(const Work &work, Failed failed, Done done)
    {
        connect(&work, failed, this, [this, &work](const QString &sentence) { showFailure(sentence, work); });
        connect(&work, done, this, [this, &work] { endFailure(work); });
    }
    /// Does what the message on show offers to take back; whether there is one.
    bool takeBackShown();
    /// Takes back what was done last and is not taken back yet, and says what; whether there is anything.
    bool takeBack();

protected:
    void resizeEvent(QResizeEvent *event) override;
    void closeEvent(QCloseEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override;
    bool eventFilter(QObject *watched, QEvent *event) override;
    bool focusNextPrevChild(bool isForward) override;

private:
    QSize firstSize() const;
    void restoreState();
    void saveState();
    void applySidebarWidth();
    void keepSidebarWidth();
    void arrange();
    void limitColumns();
    void placeSheet();
    void setSheetShown(bool isShown);
    void showPage(QWidget &middle, QWidget &detail);
    void showToast(const QString &message, const QString &action);
    void showFailure(const QString &sentence, const QObject &work);
    void endFailure(const QObject &work);
    void endToastLater();
    void performToastAction();
    struct UndoStep {
        ToastPort::Offer offer;
        QString message;
        std::function<void()> undo;
    };
    std::optional<UndoStep> takeStep(ToastPort::Offer offer);

    CXClock &m_clock;
    KWUserDefaults &m_defaults;
    QSplitter *m_splitter;
    SidebarView *m_sidebar;
    TaskListPane *m_listPane;
    CalendarPane *m_calendarPane;
    HabitPane *m_habitPane;
    FocusPane *m_focusPane;
    WebPane *m_summaryPane;
    QStackedWidget *m_pages; // the middle column: one of these
    TaskDetailView *m_detail;
    HabitDetailView *m_habitDetail;
    FocusSideView *m_focusSide;
    QStackedWidget *m_details; // the right column: one of these
    SheetShadow *m_sheetShadow;
    Toast *m_toast;
    bool m_hasSheet = false;          // the detail is one
    ToastPort::Offer m_undoOffer = 0; // of the message on show
    ToastPort::Offer m_lastOffer = 0;
    std::function<void()> m_toastAction;
    QList<UndoStep> m_undoSteps;           // the latest last
    const QObject *m_failedWork = nullptr; // of the failure on show; for comparing
    ClockCall m_toastEnd;
};
