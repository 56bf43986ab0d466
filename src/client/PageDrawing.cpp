#include "client/PageDrawing.h"

#include "cli/CommandText.h"
#include "client/DesktopRooms.h"
#include "client/WebPages.h"
#include "model/OrvaneKit.h"
#include "views/calendar/CalendarPane.h"
#include "views/focus/FocusPane.h"
#include "views/focus/FocusPanel.h"
#include "views/habits/HabitListView.h"
#include "views/habits/HabitPane.h"
#include "views/main/MainWindow.h"
#include "views/pictures/CrowdedPage.h"
#include "views/pictures/PagePicture.h"
#include "views/preferences/PreferencesWindow.h"
#include "views/tasklist/TaskListPane.h"
#include "views/tasklist/TaskListView.h"
#include "views/welcome/WelcomeWindow.h"

#include <QAction>
#include <QCursor>
#include <QKeyEvent>
#include <QLineEdit>
#include <QMouseEvent>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

// The first paint asks for counts, they come from the background, and what they bring is laid out.
void finishWork(OrvaneKit &kit)
{
    constexpr int rounds = 4;
    for (int round = 0; round < rounds; ++round) {
        QCoreApplication::processEvents();
        kit.manager().threadPool().waitForDone();
    }
    QCoreApplication::processEvents();
}

// Pages of the web engine are painted by processes of its own. Nothing tells when the last frame is here.
void waitForPage(const WebPane &pane, const CXClock &clock)
{
    constexpr auto longest = std::chrono::seconds{30};
    constexpr auto lastFrame = std::chrono::milliseconds{500};
    const Instant end = clock.now() + longest;
    while (pane.page() && !pane.page()->isReady() && clock.now() < end)
        QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
    const Instant painted = clock.now() + lastFrame;
    while (pane.page() && clock.now() < painted)
        QCoreApplication::processEvents(QEventLoop::AllEvents);
}

// A picture shows the detail too: of the first task with a checklist, else of the first one.
void selectTaskToShow(MainWindow &window)
{
    const QList<KWTaskListItemModel> rows = window.listPane().model().tasks();
    if (rows.isEmpty()) return;
    const auto found = std::ranges::find_if(rows, [](const auto &row) { return row.checklistCount > 0; });
    window.listPane().list().selectTask(found == rows.end() ? rows.first().sid : found->sid);
}

void typeInto(MainWindow &window, const QString &field, const QString &text)
{
    if (auto *found = window.findChild<QLineEdit *>(field)) found->setText(text);
}

// A press where the page says how many more there are.
void openMore(CalendarView &view)
{
    const auto &more = view.places().more;
    if (more.empty()) return;
    const QPointF point{more.front().bounds.center()};
    QMouseEvent press{QEvent::MouseButtonPress, point,          view.viewport()->mapToGlobal(point),
                      Qt::LeftButton,           Qt::LeftButton, {}};
    QCoreApplication::sendEvent(view.viewport(), &press);
}

void changeCalendar(CalendarPane &pane, PicturePage::CalendarState state)
{
    constexpr int itemsADay = 40;
    switch (state) {
    case PicturePage::CalendarState::Usual:
        return;
    case PicturePage::CalendarState::Crowded:
        return pane.showPage(crowdedPage(pane.view().content(), itemsADay));
    case PicturePage::CalendarState::Shown:
        return Q_EMIT pane.shownAsked();
    case PicturePage::CalendarState::More:
        pane.showPage(crowdedPage(pane.view().content(), itemsADay));
        return openMore(pane.view());
    case PicturePage::CalendarState::Tray:
        return pane.setTrayShown(true);
    }
}

// The first habit with an amount, whose detail has most parts.
void selectHabitToShow(HabitPane &habits)
{
    for (const HabitSection &section : habits.content().sections)
        for (const HabitRow &each : section.rows)
            if (each.habit.isRealType) return habits.list().selectHabit(each.habit.sid);
}

// "running", "picker", "records", "window"; the page as it opens without.
void changeFocus(MainWindow &window, DesktopRooms &rooms, const QString &state)
{
    FocusRooms &focus = rooms.focus();
    constexpr int secondsRun = 558;
    if (state == u"running" || state == u"window") {
        OrvaneKit &kit = focus.presenter().kit();
        const auto choices = focusTargetChoices(kit.account().currentUserID(), {}, kit.context());
        if (!choices.isEmpty()) focus.presenter().startOn(choices.first().target, KWFocusTypePomo);
        for (int i = 0; i < secondsRun; ++i)
            focus.pomo().timerStep();
    }
    if (state == u"picker") window.focusPane().panel()->pickTarget();
    if (state == u"records") window.openDetail();
    if (state == u"window") rooms.focusWindow().show();
}

void press(QWidget &widget, Qt::Key key, Qt::KeyboardModifiers modifiers = Qt::NoModifier)
{
    QKeyEvent event{QEvent::KeyPress, key, modifiers};
    QCoreApplication::sendEvent(&widget, &event);
}

// Opens what the page shows over the list.
void openOver(MainWindow &window, const PicturePage &page, DesktopRooms &rooms)
{
    switch (page.kind) {
    case PicturePage::Kind::Detail:
        return window.openDetail();
    case PicturePage::Kind::Search:
        rooms.menu().action(MenuCommand::Find).trigger();
        return typeInto(window, u"searchField"_s, page.text);
    case PicturePage::Kind::Palette:
        rooms.menu().action(MenuCommand::OpenPalette).trigger();
        return typeInto(window, u"paletteField"_s, page.text);
    case PicturePage::Kind::HabitDetail:
        return window.openDetail();
    case PicturePage::Kind::HabitDay:
        return press(window.habitPane().list(), Qt::Key_Return, Qt::ControlModifier);
    case PicturePage::Kind::HabitEditor:
        return press(window.habitPane().list(), Qt::Key_F2);
    case PicturePage::Kind::Schedule:
        return rooms.menu().action(MenuCommand::SetDate).trigger();
    case PicturePage::Kind::QuickAdd:
        return rooms.quickAdd().show(page.text, {});
    case PicturePage::Kind::FilterEditor:
        return rooms.mainWindow().editFilter(page.text);
    case PicturePage::Kind::Focus:
        return changeFocus(window, rooms, page.text);
    case PicturePage::Kind::Calendar:
        return changeCalendar(window.calendarPane(), page.state);
    default:
        return;
    }
}

} // namespace

Result<void> drawPage(const PicturePage &page, const PictureRequest &request, OrvaneKit &kit, CXClock &clock)
{
    QCursor::setPos(-1000, -1000); // no row is drawn as pointed at
    DesktopRooms rooms{kit, clock, {.webPages = webPagePlugin}};
    rooms.menu().refreshConfiguration(); // keys are shown
    QWidget *window = nullptr;
    if (page.kind == PicturePage::Kind::Welcome) {
        rooms.welcomeWindow().showCentred();
        window = rooms.welcomeWindow().window();
    } else if (page.kind == PicturePage::Kind::Preferences) {
        rooms.preferences().show(page.text);
        window = rooms.preferences().window();
        if (!window) return Error{commandText("Nobody has used this folder yet, so it has no preferences.")};
    } else {
        rooms.mainWindow().show();
        window = rooms.mainWindow().window();
        if (page.kind == PicturePage::Kind::Calendar) {
            rooms.mainWindow().showCalendar(page.days);
        } else {
            rooms.mainWindow().select(page.list);
            selectTaskToShow(*rooms.mainWindow().window());
        }
    }
    window->move(0, 0);
    window->resize(request.size);
    if (MainWindow *main = rooms.mainWindow().window()) {
        finishWork(kit);
        selectHabitToShow(main->habitPane());
        openOver(*main, page, rooms);
        waitForPage(main->summaryPane(), clock);
    }
    finishWork(kit);
    return savePicture(*window, request.file);
}
