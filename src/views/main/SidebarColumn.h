#pragma once

#include "views/filtereditor/FilterEditorController.h"
#include "views/main/MainWindowRooms.h"
#include "views/sidebar/SidebarCommands.h"
#include "views/sidebar/SidebarController.h"
#include "views/subscriptions/SubscribeController.h"

class MainWindow;

/// The left column at work: the tree of lists, what is done to them, and the window of a filter. Main thread.
class SidebarColumn : public QObject {
    Q_OBJECT

public:
    SidebarColumn(const MainWindowRooms &rooms, MainWindow &window);

    /// Opens the window of the filter; an empty id makes a new one.
    void editFilter(const QString &filterID) { m_filters.edit(filterID); }

Q_SIGNALS:
    void listSelected(const KWListIdentifier &list);
    /// The same list is selected; it, or others, may have another name, colour or place.
    void contentsChanged();
    /// The keyboard is to go on to the tasks of the list.
    void listOpened();
    void filterMade(const KWListIdentifier &filter);

private:
    SidebarController m_tree;
    SidebarCommands m_commands;
    FilterEditorController m_filters;
    SubscribeController m_calendars;
};
