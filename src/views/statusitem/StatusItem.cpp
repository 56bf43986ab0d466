#include "views/statusitem/StatusItem.h"

#include "app/ApplicationName.h"
#include "app/KWDelayDeleteManager.h"
#include "model/OrvaneKit.h"
#include "model/events/NotificationNames.h"
#include "model/records/DayStamp.h"
#include "model/records/KWSmartProject.h"
#include "model/records/KWTask.h"
#include "model/records/KWUserSettings.h"
#include "model/settings/KWLocalizedString.h"
#include "model/store/KWHabitUtils.h"
#include "model/store/KWTaskTicker.h"
#include "views/addfield/AddFieldController.h"
#include "views/addfield/KWNewTaskTextField.h"
#include "views/addfield/TaskPlace.h"
#include "views/calendar/EventPopover.h"
#include "views/focus/FocusPanel.h"
#include "views/focus/FocusPresenter.h"
#include "views/focus/FocusWording.h"
#include "views/menu/MainMenu.h"
#include "views/statusitem/FocusPopover.h"
#include "views/statusitem/PopoverWindow.h"
#include "views/tasklist/PageHeader.h"
#include "views/tasklist/ShownRows.h"
#include "views/tasklist/TaskListView.h"
#include "views/theme/Icons.h"
#include "views/wording/DateWording.h"

#include <QCursor>
#include <QMenu>
#include <QSystemTrayIcon>

using namespace Qt::StringLiterals;

namespace {

// Where a clicked item stands. Items of the older kind know; the pointer knows of the others.
QRect placeOf(const QSystemTrayIcon &icon)
{
    const QRect place = icon.geometry();
    return place.isEmpty() ? QRect{QCursor::pos(), QSize{1, 1}} : place;
}

} // namespace

// The quick view with what fills it.
struct StatusItem::Popover {
    explicit Popover(const Rooms &rooms)
        : kit(rooms.kit)
        , clock(rooms.clock)
        , window(rooms.clock)
        , service(rooms.kit.manager(), rooms.kit.account(), rooms.kit.center(), rooms.kit.bus())
        , rows(window, service, rooms.clock)
        , ticker(rooms.kit.manager())
        , addField(window.addField(),
                   {rooms.kit, rooms.clock, rooms.newTasks, rooms.alerts, rooms.menu.shortcuts()})
        , newMinute(rooms.kit.center().addObserver(KWNewMinuteComesNotification,
                                                   [this](const KWNotification &) { showHead(); }))
    {
        service.onRowsChanged = [this] { rows.show(); };
        service.onFailure = [this](const QString &sentence) { showMessage(sentence); };
        QObject::connect(&window.list(), &TaskListView::completionToggled, &window,
                         [this](const QStringList &taskIDs) {
                             if (const auto done = ticker.tick(taskIDs); !done)
                                 showMessage(done.error().sentence);
                         });
        QObject::connect(&window.list(), &TaskListView::habitChecked, &window,
                         [this](const QString &habitID, bool takesBack) { check(habitID, takesBack); });
        QObject::connect(&window.list(), &TaskListView::eventOpened, &window,
                         [this](const KWTaskListItemModel &event, const QRect &row) {
                             EventPopover::popUp(event, clock.zone(), row, window);
                         });
        QObject::connect(&addField, &AddFieldController::failed, &window,
                         [this](const QString &sentence) { showMessage(sentence); });
        QObject::connect(&addField, &AddFieldController::recognized, &window, [this] { showDay(); });
        QObject::connect(&addField, &AddFieldController::added, &window,
                         [this](const QString &taskID) { showPlaceOf(taskID); });
        QObject::connect(&addField, &AddFieldController::addedSeveral, &window,
                         [this](const QStringList &taskIDs) { showMessage(tasksAddedText(taskIDs.size())); });
        const QString today = KWSmartProject::today().displayName();
        window.header().setTitle(today);
        window.addField().setPlaceholder(KWLocalizedString("Add a task to “%1”").arg(today));
        window.list().setEmptyText(KWLocalizedString("Nothing to do today"),
                                   KWLocalizedString("Type above to add a task."));
        addField.setList(KWListIdentifier::todayProject());
        service.leaveOut(rooms.deletes.delayDeletedTaskSet());
        service.select(KWListIdentifier::todayProject());
        showHead();
    }

    void showHead()
    {
        showDay();
        window.model().refreshDates();
    }
    void showDay()
    {
        const Day today = clock.today();
        window.header().setNote(DateWording::weekdayAndDay(today, today, QLocale{}));
    }
    // Of a task that is not of today.
    void showPlaceOf(const QString &taskID)
    {
        const KWTask *task = kit.context().find<KWTask>(taskID);
        if (task && !window.model().indexOf(taskID).isValid())
            showMessage(KWLocalizedString("Added: %1").arg(placeOf(task->model(), kit)));
    }
    void check(const QString &habitID, bool takesBack)
    {
        const Day today = KWUserSettings::habitDayOfUser(kit.account().currentUserID(), kit.context());
        const auto done = KWHabitUtils{kit.manager()}.updateHabitCheckin(
            habitID, DayStamp::fromDay(today), takesBack ? HabitCheck::TakeBack : HabitCheck::Add,
            CheckedBy::Person);
        if (!done) showMessage(done.error().sentence);
    }
    // Where the date stands, until the next minute or something is typed.
    void showMessage(const QString &sentence) { window.header().setNote(sentence); }

    OrvaneKit &kit;
    CXClock &clock;
    PopoverWindow window;
    KWTaskListService service;
    ShownRows rows;
    KWTaskTicker ticker;
    AddFieldController addField;
    KWNotificationCenter::Observation newMinute;
};

StatusItem::StatusItem(Rooms rooms) : m_rooms(rooms)
{
    m_rooms.menu.handle(MenuCommand::ShowPopover, *this, [this] { togglePopover(); });
    m_rooms.area.onAppeared = [this] { showIfPossible(); };
    connect(&m_rooms.focus, &FocusPresenter::changed, this, &StatusItem::refresh);
}

StatusItem::~StatusItem() { m_rooms.area.onAppeared = nullptr; }

void StatusItem::create()
{
    m_isWanted = true;
    showIfPossible();
}

void StatusItem::showIfPossible()
{
    if (m_icon || !m_isWanted || !m_rooms.area.isThere() || !QSystemTrayIcon::isSystemTrayAvailable()) return;
    m_icon = std::make_unique<QSystemTrayIcon>(Icons::applicationIcon());
    m_contextMenu.reset(makeMenu());
    m_icon->setContextMenu(m_contextMenu.get());
    m_toolTip.clear();
    refresh();
    connect(m_icon.get(), &QSystemTrayIcon::activated, this,
            [this](QSystemTrayIcon::ActivationReason reason) {
                if (reason == QSystemTrayIcon::Trigger) toggle(placeOf(*m_icon));
                if (reason == QSystemTrayIcon::DoubleClick || reason == QSystemTrayIcon::MiddleClick)
                    Q_EMIT windowRequested();
            });
    m_icon->show();
}

void StatusItem::remove()
{
    m_isWanted = false;
    m_icon.reset();
    m_contextMenu.reset();
}

void StatusItem::refresh()
{
    if (!m_icon) return;
    const QString text = toolTip();
    if (text != std::exchange(m_toolTip, text)) m_icon->setToolTip(text);
}

// By the minute: every change goes to the desktop.
QString StatusItem::toolTip() const
{
    const FocusPresenter &focus = m_rooms.focus;
    if (!m_rooms.kit.account().isSignedIn() || !focus.isRunning()) return localizedApplicationName();
    const KWFocusType mode = focus.mode();
    const bool isPomo = mode == KWFocusTypePomo;
    const std::int64_t seconds = focus.reading(mode).seconds;
    // What is left is never said to be less than it is.
    const QString length =
        FocusWording::length(std::chrono::minutes{isPomo ? (seconds + 59) / 60 : seconds / 60});
    const FocusFace face = focus.face(mode);
    const bool isBreak = face.phase == FocusFace::Phase::Break || face.phase == FocusFace::Phase::Waiting;
    const QString running = !isPomo   ? KWLocalizedString("Stopwatch, %1").arg(length)
                            : isBreak ? KWLocalizedString("Break, %1 left").arg(length)
                                      : KWLocalizedString("Pomo, %1 left").arg(length);
    const QString time = face.phase == FocusFace::Phase::Paused
                             ? KWLocalizedString("%1, %2").arg(running, face.words)
                             : running;
    return focus.target().title.isEmpty() ? time : time + u": "_s + focus.target().title.simplified();
}

void StatusItem::resetPopover()
{
    m_popover.reset();
    m_focusPopover.reset();
    m_hasFocusInFront = false;
}

void StatusItem::showFocusPage(KWFocusType mode)
{
    m_hasFocusInFront = true;
    if (m_focusPopover) m_focusPopover->showMode(mode);
    if (m_popover && m_popover->window.isVisible()) showFocus(m_anchor);
}

bool StatusItem::isOpenWithPomoPage() const
{
    return m_focusPopover && m_focusPopover->isVisible() && m_focusPopover->panel().mode() == KWFocusTypePomo;
}

bool StatusItem::isOpen() const
{
    return (m_focusPopover && m_focusPopover->isVisible()) || (m_popover && m_popover->window.isVisible());
}

void StatusItem::dismiss()
{
    if (m_focusPopover) m_focusPopover->hide();
}

void StatusItem::showStarted()
{
    const FocusTargetChoice &target = m_rooms.focus.target();
    const QString sentence = target.title.isEmpty()
                                 ? KWLocalizedString("A Pomo has begun.")
                                 : KWLocalizedString("A Pomo has begun: %1").arg(target.title.simplified());
    Q_EMIT focusStarted(sentence);
}

void StatusItem::showFocus(const QRect &anchor)
{
    if (!m_rooms.kit.account().isSignedIn()) return Q_EMIT windowRequested();
    if (!m_rooms.focus.isEnabled()) return togglePopover(anchor);
    if (!m_focusPopover) {
        m_focusPopover = std::make_unique<FocusPopover>(m_rooms.focus);
        connect(m_focusPopover.get(), &FocusPopover::todayRequested, this, [this] {
            m_focusPopover->hide();
            togglePopover(m_anchor);
        });
    }
    m_anchor = anchor;
    m_hasFocusInFront = true;
    if (m_popover) m_popover->window.hide();
    m_focusPopover->showMode(m_rooms.focus.mode());
    m_focusPopover->popUp(anchor);
}

void StatusItem::toggle(const QRect &anchor)
{
    if (!m_hasFocusInFront || !m_rooms.focus.isEnabled()) return togglePopover(anchor);
    if (m_focusPopover && m_focusPopover->isVisible()) return m_focusPopover->hide();
    showFocus(anchor);
}

QMenu *StatusItem::makeMenu()
{
    auto *menu = new QMenu;
    menu->addAction(KWLocalizedString("Show Orvane"), this, &StatusItem::windowRequested);
    menu->addAction(KWLocalizedString("Quick View of Today"), this, [this] { togglePopover(); });
    menu->addAction(KWLocalizedString("Focus"), this, [this] { showFocus(); });
    menu->addAction(KWLocalizedString("Add Task…"), this, &StatusItem::addRequested);
    menu->addSeparator();
    menu->addAction(&m_rooms.menu.action(MenuCommand::Preferences));
    menu->addAction(&m_rooms.menu.action(MenuCommand::SendDiagnostics));
    menu->addAction(&m_rooms.menu.action(MenuCommand::Quit));
    return menu;
}

void StatusItem::togglePopover(const QRect &anchor)
{
    if (!m_rooms.kit.account().isSignedIn()) return Q_EMIT windowRequested();
    if (!m_popover) {
        m_popover = std::make_unique<Popover>(m_rooms);
        connect(&m_popover->window.list(), &TaskListView::opened, this, [this](const QString &taskID) {
            m_popover->window.hide();
            Q_EMIT taskRequested(taskID);
        });
        connect(&m_popover->window.header(), &PageHeader::actionTriggered, this,
                [this] { showFocus(m_anchor); });
    }
    PopoverWindow &window = m_popover->window;
    if (window.isVisible()) return window.hide();
    if (m_focusPopover) m_focusPopover->hide();
    m_anchor = anchor;
    m_hasFocusInFront = false;
    window.header().setAction(m_rooms.focus.isEnabled() ? KWLocalizedString("Focus") : QString{});
    window.popUp(anchor);
}

PopoverWindow *StatusItem::popover() const { return m_popover ? &m_popover->window : nullptr; }
