#include "app/MenuTable.h"

#include "app/ApplicationName.h"
#include "model/settings/KWLocalizedString.h"

#include <algorithm>

namespace {

using enum MenuCommand;
using enum MenuNeeds;
using enum MenuTitle;

constexpr bool group = true;

constexpr MenuEntry entries[] = {
    {About, Application, "about", "About %@", "", Nothing},
    {Preferences, Application, "preferences", "Preferences…", "Ctrl+,", SignedInUser},
    {SignOut, Application, "signOut", "Sign Out", "", SignedInUser},
    {Hide, Application, "hide", "Hide %@", "Ctrl+H", Nothing, group},
    {Quit, Application, "quit", "Quit %@", "Ctrl+Q", Nothing},

    {AddTask, File, "addTask", "Add Task", "Ctrl+N"},
    {NewList, File, "newList", "New List", "Ctrl+Shift+N"},
    {NewFilter, File, "newFilter", "New Filter…", ""},
    {NewCalendar, File, "newCalendar", "Subscribe to Calendar…", ""},
    {Print, File, "print", "Print…", "Ctrl+P", SignedInUser},
    {ExportList, File, "exportList", "Export List…", "Ctrl+Shift+E"},
    {CloseWindow, File, "closeWindow", "Close Window", "Ctrl+W", Nothing, group},

    {Undo, Edit, "undo", "Undo", "Ctrl+Z"},
    {Redo, Edit, "redo", "Redo", "Ctrl+Shift+Z"},
    {Cut, Edit, "cut", "Cut", "Ctrl+X", SignedInUser, group},
    {Copy, Edit, "copy", "Copy", "Ctrl+C"},
    {Paste, Edit, "paste", "Paste", "Ctrl+V"},
    {SelectAll, Edit, "selectAll", "Select All", "Ctrl+A"},

    {CompleteTask, Task, "completeTask", "Complete", "Ctrl+Shift+Return", SelectedTask},
    {SetDate, Task, "setDate", "Set Date…", "Ctrl+D", SelectedTask, group},
    {SetToday, Task, "setToday", "Today", "Ctrl+T", SelectedTask},
    {SetTomorrow, Task, "setTomorrow", "Tomorrow", "Ctrl+Shift+T", SelectedTask},
    {SetNextWeek, Task, "setNextWeek", "Next Week", "Ctrl+Shift+W", SelectedTask},
    {ClearDate, Task, "clearDate", "No Date", "Ctrl+Shift+D", SelectedTask},
    {PriorityHigh, Task, "priorityHigh", "High Priority", "Alt+3", SelectedTask, group},
    {PriorityMedium, Task, "priorityMedium", "Medium Priority", "Alt+2", SelectedTask},
    {PriorityLow, Task, "priorityLow", "Low Priority", "Alt+1", SelectedTask},
    {PriorityNone, Task, "priorityNone", "No Priority", "Alt+0", SelectedTask},

    {StartPomoOnTask, Task, "startPomoOnTask", "Start Pomo", "Ctrl+Shift+P", SelectedTask, group},
    {StartStopwatchOnTask, Task, "startStopwatchOnTask", "Start Stopwatch", "Ctrl+Alt+P", SelectedTask},

    {OpenPalette, Go, "openPalette", "Go To…", "Ctrl+K"},
    {Find, Go, "find", "Search…", "Ctrl+F"},
    {OpenInbox, Go, "openInbox", "Inbox", "Ctrl+1", SignedInUser, group},
    {OpenToday, Go, "openToday", "Today", "Ctrl+2"},
    {OpenTomorrow, Go, "openTomorrow", "Tomorrow", "Ctrl+3"},
    {OpenNext7Days, Go, "openNext7Days", "Next 7 Days", "Ctrl+4"},
    {OpenCalendar, Go, "openCalendar", "Calendar", "Ctrl+5"},
    {OpenFocus, Go, "openFocus", "Focus", "Ctrl+Shift+F"},
    {OpenHabit, Go, "openHabit", "Habits", "Ctrl+6"},
    {OpenAll, Go, "openAll", "All", "Ctrl+7", SignedInUser, group},
    {OpenAssignedToMe, Go, "openAssignedToMe", "Assigned to Me", "Ctrl+8"},
    {OpenCompleted, Go, "openCompleted", "Completed", "Ctrl+9"},
    {OpenTrash, Go, "openTrash", "Trash", "Ctrl+0"},
    {OpenSummary, Go, "openSummary", "Summary", "Ctrl+Shift+S"},
    {GoToLists, Go, "goToLists", "Sidebar", "Ctrl+L", SignedInUser, group},

    {Minimise, Window, "minimise", "Minimise", "Ctrl+M", Nothing},
    {StartOrAbandonPomo, Window, "startOrAbandonPomo", "Start or Stop Pomo", "Ctrl+Shift+G"},
    {ShowFocusWindow, Window, "showFocusWindow", "Focus Window", "Ctrl+Shift+Y"},
    {ShowPopover, Window, "showPopover", "Quick View of Today", "Ctrl+Shift+O"},
    {ShowMenuBar, Window, "showMenuBar", "Menu Bar", "F10"},

    {ShowShortcuts, Help, "showShortcuts", "Keyboard Shortcuts", "F1"},
    {ShowTitleHelp, Help, "showTitleHelp", "What You Can Type", "Shift+F1"},
    {ReportProblem, Help, "reportProblem", "Report a Problem…", ""},
    {SendDiagnostics, Help, "clear_data", "Send Diagnostic Data…", "", Nothing},
};

} // namespace

std::span<const MenuEntry> menuEntries() { return entries; }

const MenuEntry &menuEntryOf(MenuCommand command)
{
    return *std::ranges::find(entries, command, &MenuEntry::command);
}

QString MenuEntry::plainTitle() const { return textWithApplicationName(title).remove(u'…'); }

QString menuTitleText(MenuTitle menu)
{
    switch (menu) {
    case Application:
        return u'&' + localizedApplicationName();
    case File:
        return KWLocalizedString("&File");
    case Edit:
        return KWLocalizedString("&Edit");
    case MenuTitle::Task:
        return KWLocalizedString("&Task");
    case Go:
        return KWLocalizedString("&Go");
    case Window:
        return KWLocalizedString("&Window");
    case Help:
        return KWLocalizedString("&Help");
    }
    return {};
}
