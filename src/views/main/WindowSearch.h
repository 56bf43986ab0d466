#pragma once

#include "views/main/MainWindowRooms.h"
#include "views/palette/PaletteController.h"
#include "views/palette/TaskHits.h"
#include "views/search/SearchController.h"
#include "views/tasklist/TaskMenu.h"

class BatchActions;
class MainWindow;
class TaskDetailController;

/// What finds lists, tasks and commands in the window: the command palette, and the search page in place of
/// the list. Main thread.
class WindowSearch : public QObject {
    Q_OBJECT

public:
    /// All outlive it. `detail` shows the hit that is selected.
    WindowSearch(const MainWindowRooms &rooms, MainWindow &window, BatchActions &actions,
                 TaskDetailController &detail);

    SearchController &page() { return m_page; }
    void openPage(const QString &text);
    /// That list is selected: the page gives way to another one than before.
    void closePage(const KWListIdentifier &list);

Q_SIGNALS:
    void listChosen(const KWListIdentifier &list);
    void taskChosen(const QString &taskID);
    /// The page is about to stand in place of the list; it no longer does.
    void pageOpening();
    void pageClosed();

private:
    TaskHits m_hits;
    PaletteController m_palette;
    SearchController m_page;
    TaskMenu m_taskMenu; // of a hit
    KWListIdentifier m_listBelow{};
};
