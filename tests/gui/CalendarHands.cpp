#include "gui/CalendarHands.h"

#include "views/calendar/CalendarPane.h"
#include "views/calendar/CalendarView.h"
#include "views/main/MainWindow.h"

#include <QApplication>
#include <QMenu>
#include <QTest>

#include <algorithm>

using namespace Qt::StringLiterals;

void CalendarHands::startWithTasks()
{
    m_client = std::make_unique<ClientFixture>("2026-11-18 09:00");
    m_client->useOnThisComputer();
    m_client->openList(u"Inbox"_s);
    m_client->press(Qt::Key_N, Qt::ControlModifier);
    for (const char *each : {"Walk today 2pm", "Stand up today 10am every day", "Trip friday", "Someday"}) {
        m_client->type(QString::fromLatin1(each));
        m_client->press(Qt::Key_Return);
    }
}

CalendarPane &CalendarHands::pane() const { return m_client->window()->calendarPane(); }

CalendarView &CalendarHands::view() const { return pane().view(); }

QStringList CalendarHands::titles() const
{
    QStringList titles;
    for (const CalendarItem &each : view().content().items)
        titles += each.title;
    titles.sort();
    return titles;
}

void CalendarHands::chooseInMenu(const QString &text) const
{
    auto *menu = qobject_cast<QMenu *>(QApplication::activePopupWidget());
    if (!menu) qFatal("no menu opened");
    const QList<QAction *> actions = menu->actions();
    const auto found = std::ranges::find(actions, text, &QAction::text);
    if (found == actions.end()) qFatal("the menu has no %s", qUtf8Printable(text));
    (*found)->trigger();
    menu->close();
    activate();
}

void CalendarHands::activate() const
{
    m_client->window()->activateWindow();
    if (!QTest::qWaitForWindowActive(m_client->window())) qFatal("the window is not active");
    view().setFocus();
}

void CalendarHands::openCalendar() const
{
    m_client->press(Qt::Key_5, Qt::ControlModifier);
    QTRY_VERIFY(view().hasFocus() || m_client->window()->isCalendarShown());
    view().setFocus();
}

void CalendarHands::openWeek() const
{
    openCalendar();
    m_client->press(Qt::Key_W);
    QTRY_COMPARE(view().content().page.kind, CalendarPage::Kind::Week);
}
