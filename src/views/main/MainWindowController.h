#pragma once

#include "app/LinkOpener.h"
#include "app/ports/ToastPort.h"
#include "app/ports/WindowPorts.h"
#include "calendar/CalendarPage.h"
#include "views/main/MainWindowRooms.h"

#include <QObject>

#include <memory>

class MainWindow;

/// The main window with everything in it, made when it is first shown and dropped by close(), at sign-out.
/// A window that the person has closed is kept for the next show(). Main thread.
class MainWindowController : public QObject, public MainWindowPort, public LinkTarget, public ToastPort {
    Q_OBJECT

public:
    explicit MainWindowController(const MainWindowRooms &rooms);
    ~MainWindowController() override;

    void show() override;
    void close() override;
    Offer showUndo(const QString &message, std::function<void()> undo) override;
    void showFailure(const QString &sentence) override;
    void endUndo(Offer offer, std::function<void()> later) override;
    bool isUndoHeld(Offer offer) const override;

    /// None before it is first shown, and signed out.
    MainWindow *window() const;
    // LinkTarget; each shows the window.
    void showList(const KWListIdentifier &list) override;
    void showTask(const QString &taskID, const KWListIdentifier &list) override;
    void showEvent(const QString &eventID, Instant start) override;
    void showHabit(const QString &habitID) override;
    void showMessage(const QString &sentence) override;

    /// The search page with that text, in the window.
    void showSearch(const QString &text);
    /// Opens the window of the filter; an empty id makes a new one.
    void editFilter(const QString &filterID);
    /// Shows the list, for pictures.
    void select(const KWListIdentifier &list);
    void showCalendar(CalendarPage::Kind kind);

Q_SIGNALS:
    /// A link of the program in a text.
    void linkRequested(const QString &link);
    void preferencesRequested(const QString &page);
    /// The small window of focus.
    void focusWindowRequested();

private:
    struct Content;

    void make();
    void connectColumns();
    void openTask(const QString &taskID);
    /// What is selected in the sidebar.
    void showSelected(const KWListIdentifier &list);
    /// The keyboard goes to the middle column.
    void takeKeyboard();

    MainWindowRooms m_rooms;
    std::unique_ptr<Content> m_content;
};
