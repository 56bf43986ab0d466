#include "views/main/MainWindowCommands.h"

#include "lists/KWProjectListPresenter.h"
#include "model/records/KWProject.h"
#include "model/records/KWSmartProject.h"
#include "model/settings/KWLocalizedString.h"
#include "views/addfield/FieldHelp.h"
#include "views/addfield/KWNewTaskTextField.h"
#include "views/calendar/CalendarPane.h"
#include "views/datepicker/DatePicker.h"
#include "views/focus/FocusPresenter.h"
#include "views/main/MainWindow.h"
#include "views/main/SelectedTasks.h"
#include "views/print/ListExport.h"
#include "views/print/ListPrint.h"
#include "views/sidebar/KWProjectListView.h"
#include "views/sidebar/SidebarView.h"
#include "views/taskdetail/ChecklistView.h"
#include "views/taskdetail/TaskDetailController.h"
#include "views/taskdetail/TaskDetailView.h"
#include "views/tasklist/BatchActions.h"
#include "views/tasklist/TaskListPane.h"
#include "views/tasklist/TaskListView.h"
#include "views/web/WebPane.h"
#include "views/wording/CalendarDay.h"

#include <QApplication>
#include <QDir>
#include <QKeyEvent>
#include <QLineEdit>
#include <QTextDocument>

namespace {

WebPane *pageAround(QWidget *widget)
{
    for (; widget; widget = widget->parentWidget())
        if (auto *pane = qobject_cast<WebPane *>(widget)) return pane;
    return nullptr;
}

// A page does not say whether there is something.
bool hasTextToUndo(QWidget *widget)
{
    if (const WebPane *pane = pageAround(widget)) return pane->isTyping();
    if (const auto *line = qobject_cast<const QLineEdit *>(widget)) return line->isUndoAvailable();
    const auto *edit = qobject_cast<const QTextEdit *>(widget);
    return edit && edit->document()->isUndoAvailable();
}

// A command of the Edit menu goes to the text that has the focus.
template <class LineEdit, class TextEdit>
void giveToText(QWidget *focused, LineEdit line, TextEdit text, WebPageEdit page)
{
    if (auto *lineEdit = qobject_cast<QLineEdit *>(focused))
        std::invoke(line, lineEdit);
    else if (auto *textEdit = qobject_cast<QTextEdit *>(focused))
        std::invoke(text, textEdit);
    else if (WebPane *pane = pageAround(focused))
        pane->edit(page);
}

} // namespace

MainWindowCommands::MainWindowCommands(const Parts &parts) : m_parts(parts)
{
    connectTaskCommands();
    connectEditing();
    connectLists();
    connectFocus();
    MainMenu &menu = m_parts.menu;
    const SelectedTasks &selected = m_parts.selected;
    connect(&selected, &SelectedTasks::changed, this, [&menu, &selected] {
        menu.updateTaskMenuItemsWithEnabled(!selected.current().isEmpty() || selected.haveTask());
    });
}

MainWindowCommands::~MainWindowCommands() { m_parts.menu.updateTaskMenuItemsWithEnabled(false); }

void MainWindowCommands::connectTaskCommands()
{
    const auto today = [this] { return m_parts.clock.today(); };
    on(MenuCommand::AddTask, [this] { addTask(); });
    on(MenuCommand::ShowTitleHelp, [this] {
        if (&m_parts.window.middle() != &m_parts.window.listPane())
            m_parts.sidebar.select(KWListIdentifier::todayProject());
        addTask();
        FieldHelp::showBelow(m_parts.window.listPane().addField());
    });
    on(MenuCommand::CompleteTask, [this] { m_parts.tasks.tick(m_parts.selected.ids()); });
    on(MenuCommand::SetDate, [this] { pickDate(); });
    on(MenuCommand::ClearDate, [this] { m_parts.tasks.clearDate(datedIDs()); });
    on(MenuCommand::SetToday, [this, today] { m_parts.tasks.setDay(datedIDs(), today()); });
    on(MenuCommand::SetTomorrow,
       [this, today] { m_parts.tasks.setDay(datedIDs(), today() + std::chrono::days{1}); });
    on(MenuCommand::SetNextWeek, [this, today] {
        m_parts.tasks.setDay(datedIDs(),
                             mondayOfNextWeek(today(), m_parts.account.userSettings().firstWeekday));
    });
    for (const auto &[command, priority] : {std::pair{MenuCommand::PriorityNone, KWTaskPriorityNone},
                                            {MenuCommand::PriorityLow, KWTaskPriorityLow},
                                            {MenuCommand::PriorityMedium, KWTaskPriorityMedium},
                                            {MenuCommand::PriorityHigh, KWTaskPriorityHigh}}) {
        on(command,
           [this, priority = priority] { m_parts.tasks.setPriority(m_parts.selected.taskIDs(), priority); });
        m_parts.menu.setHindrance(command, [this] {
            return m_parts.selected.haveTask()
                       ? QString{}
                       : KWLocalizedString("A checklist item has the priority of its task.");
        });
    }
    on(MenuCommand::Print, [this] { print(); });
    on(MenuCommand::ExportList, [this] { exportList(); });
    for (const MenuCommand each : {MenuCommand::Print, MenuCommand::ExportList})
        m_parts.menu.setHindrance(each, [this] {
            if (m_parts.window.isCalendarShown())
                return KWLocalizedString("This is for lists, and the calendar is shown.");
            if (m_parts.window.isFocusShown())
                return KWLocalizedString("This is for lists, and the page of focus is shown.");
            if (m_parts.window.isSummaryShown())
                return KWLocalizedString("This is for lists, and the summary is shown.");
            return m_parts.window.isHabitsShown()
                       ? KWLocalizedString("This is for lists, and the habits are shown.")
                       : QString{};
        });
}

void MainWindowCommands::connectEditing()
{
    const auto give = [this](MenuCommand command, auto line, auto text, WebPageEdit page) {
        on(command, [this, line, text, page] { giveToText(m_parts.window.focusWidget(), line, text, page); });
    };
    give(MenuCommand::Redo, &QLineEdit::redo, &QTextEdit::redo, WebPageEdit::Redo);
    give(MenuCommand::Cut, &QLineEdit::cut, &QTextEdit::cut, WebPageEdit::Cut);
    on(MenuCommand::Copy, [this] {
        if (m_parts.selected.haveFocus()) return m_parts.tasks.copyTitles(m_parts.selected.ids());
        giveToText(m_parts.window.focusWidget(), &QLineEdit::copy, &QTextEdit::copy, WebPageEdit::Copy);
    });
    give(MenuCommand::Paste, &QLineEdit::paste, &QTextEdit::paste, WebPageEdit::Paste);
    on(MenuCommand::SelectAll, [this] {
        TaskListView &list = m_parts.window.listPane().list();
        if (list.hasFocus()) return list.selectAll();
        giveToText(m_parts.window.focusWidget(), &QLineEdit::selectAll, &QTextEdit::selectAll,
                   WebPageEdit::SelectAll);
    });
    on(MenuCommand::Undo, [this] {
        QWidget *focused = m_parts.window.focusWidget();
        // A field that is searched with keeps its words when what was found is brought back.
        if (qobject_cast<QLineEdit *>(focused) && m_parts.window.takeBackShown()) return;
        if (hasTextToUndo(focused) || !m_parts.window.takeBack())
            giveToText(focused, &QLineEdit::undo, &QTextEdit::undo, WebPageEdit::Undo);
    });
    qApp->installEventFilter(this);
}

// A text in which nothing is typed would keep Ctrl+Z to itself.
bool MainWindowCommands::eventFilter(QObject *watched, QEvent *event)
{
    const bool isUndo = event->type() == QEvent::ShortcutOverride &&
                        static_cast<QKeyEvent *>(event)->matches(QKeySequence::Undo);
    auto *widget = isUndo ? qobject_cast<QWidget *>(watched) : nullptr;
    if (!widget || widget->window() != &m_parts.window || hasTextToUndo(widget))
        return QObject::eventFilter(watched, event);
    event->ignore();
    return true;
}

void MainWindowCommands::connectLists()
{
    const auto opens = [this](MenuCommand command, const KWSmartProject &smart) {
        on(command, [this, list = KWListIdentifier::smartProject(smart.identifier())] {
            m_parts.sidebar.select(list);
        });
    };
    opens(MenuCommand::OpenToday, KWSmartProject::today());
    opens(MenuCommand::OpenTomorrow, KWSmartProject::tomorrow());
    opens(MenuCommand::OpenNext7Days, KWSmartProject::next7days());
    opens(MenuCommand::OpenCalendar, KWSmartProject::calendar());
    opens(MenuCommand::OpenHabit, KWSmartProject::habit());
    opens(MenuCommand::OpenFocus, KWSmartProject::focus());
    opens(MenuCommand::OpenAll, KWSmartProject::all());
    opens(MenuCommand::OpenAssignedToMe, KWSmartProject::assignedToMe());
    opens(MenuCommand::OpenCompleted, KWSmartProject::completed());
    opens(MenuCommand::OpenTrash, KWSmartProject::trash());
    opens(MenuCommand::OpenSummary, KWSmartProject::summary());
    on(MenuCommand::OpenInbox, [this] {
        m_parts.sidebar.select(
            KWListIdentifier::project(KWProject::inboxIDOfUser(m_parts.account.currentUserID())));
    });
    on(MenuCommand::GoToLists, [this] { m_parts.window.sidebar().tree().setFocus(Qt::ShortcutFocusReason); });
}

// A checklist item is no target: its task is.
void MainWindowCommands::connectFocus()
{
    const auto hindrance = [this] {
        return m_parts.focus.isEnabled() ? QString{}
                                         : KWLocalizedString("Focus is switched off in the preferences.");
    };
    for (const auto &[command, mode] : {std::pair{MenuCommand::StartPomoOnTask, KWFocusTypePomo},
                                        {MenuCommand::StartStopwatchOnTask, KWFocusTypeStopwatch}}) {
        on(command, [this, mode = mode] {
            const QStringList tasks = m_parts.selected.taskIDs();
            if (!tasks.isEmpty()) m_parts.focus.startOn(FocusTarget::task(tasks.first()), mode);
        });
        m_parts.menu.setHindrance(command, [this, hindrance] {
            return m_parts.selected.haveTask()
                       ? hindrance()
                       : KWLocalizedString("A checklist item is focused on with its task.");
        });
    }
    m_parts.menu.setHindrance(MenuCommand::OpenFocus, hindrance);
}

void MainWindowCommands::addTask()
{
    if (m_parts.window.isCalendarShown()) return m_parts.window.calendarPane().view().createHere();
    KWNewTaskTextField &field = m_parts.window.listPane().addField();
    // A list of closed tasks has none.
    if (field.isHidden() || &m_parts.window.middle() != &m_parts.window.listPane())
        m_parts.sidebar.select(KWListIdentifier::todayProject());
    m_parts.window.activateWindow();
    field.setFocus(Qt::ShortcutFocusReason);
}

QStringList MainWindowCommands::datedIDs() const
{
    const QString item = m_parts.window.detail().checklist().itemWithKeyboard();
    return item.isEmpty() ? m_parts.selected.ids() : QStringList{item};
}

void MainWindowCommands::pickDate()
{
    if (m_parts.window.detail().checklist().requestDate()) return;
    const QStringList ids = m_parts.selected.ids();
    if (ids.isEmpty()) return;
    const QPoint position = m_parts.selected.place();
    if (ids == QStringList{m_parts.selected.current()}) return m_parts.detail.pickDate(position);
    DatePicker::Days days{.today = m_parts.clock.today(),
                          .selected = {},
                          .firstWeekday = m_parts.account.userSettings().firstWeekday};
    TaskListPane &pane = m_parts.window.listPane();
    if (const QModelIndex current = pane.list().currentIndex(); current.isValid())
        if (const auto start = pane.model().rowAt(current).task.startDate)
            days.selected = m_parts.clock.zone().dayOf(*start);
    auto *picker = new DatePicker{days, &m_parts.window};
    connect(picker, &DatePicker::picked, this, [this, ids](std::optional<Day> day) {
        day ? m_parts.tasks.setDay(ids, *day) : m_parts.tasks.clearDate(ids);
    });
    picker->popUp(position);
}

void MainWindowCommands::print()
{
    const QString title = m_parts.sidebar.titleOfSelectedList();
    ListPrint::run(*ListPrint::document(title, m_parts.window.listPane().model()), title, m_parts.window);
}

void MainWindowCommands::exportList()
{
    const Result<QString> file = ListExport::run(m_parts.sidebar.titleOfSelectedList(),
                                                 m_parts.window.listPane().model(), m_parts.window);
    if (!file)
        m_parts.window.showMessage(file.error().sentence);
    else if (!file->isEmpty())
        m_parts.window.showMessage(tr("Exported to %1").arg(QDir::toNativeSeparators(*file)));
}
