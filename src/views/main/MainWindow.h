#pragma once

#include "corvexkit/time/CXClock.h"

#include <QWidget>

#include <functional>

class KWUserDefaults;
class QSplitter;
class SidebarView;
class TaskDetailView;
class TaskListPane;
class Toast;

/// The window: sidebar, list and detail side by side; in a narrow one the detail is a sheet over the
/// list that Escape closes. Size and columns are remembered. It arranges; the controllers of its columns
/// fill them.
class MainWindow : public QWidget {
    Q_OBJECT

public:
    MainWindow(CXClock &clock, KWUserDefaults &defaults);
    ~MainWindow() override;

    SidebarView &sidebar() { return *m_sidebar; }
    TaskListPane &listPane() { return *m_listPane; }
    TaskDetailView &detail() { return *m_detail; }
    Toast &toast() { return *m_toast; }

    /// Brings the detail into view, and the keyboard into it.
    void openDetail();
    void closeDetailSheet();
    /// A message with an action that takes something back; it goes after a few seconds.
    void showUndo(const QString &message, const std::function<void()> &undo);
    void showMessage(const QString &message);

Q_SIGNALS:
    void closed();

protected:
    void resizeEvent(QResizeEvent *event) override;
    void closeEvent(QCloseEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override;

private:
    void restoreState();
    void saveState();
    void arrange();
    void placeSheet();
    void addShortcuts();
    void showToast(const QString &message, const QString &action);

    CXClock &m_clock;
    KWUserDefaults &m_defaults;
    QSplitter *m_splitter;
    SidebarView *m_sidebar;
    TaskListPane *m_listPane;
    TaskDetailView *m_detail;
    Toast *m_toast;
    bool m_isNarrow = false;
    std::function<void()> m_undo;
    ClockCall m_toastEnd;
};
