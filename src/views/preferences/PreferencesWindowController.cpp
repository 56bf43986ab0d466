#include "views/preferences/PreferencesWindowController.h"

#include "model/OrvaneKit.h"
#include "views/menu/MainMenu.h"
#include "views/preferences/DataPage.h"
#include "views/preferences/FocusPage.h"
#include "views/preferences/GeneralPages.h"
#include "views/preferences/PreferencesWindow.h"
#include "views/preferences/ShortcutsPage.h"

using namespace Qt::StringLiterals;

namespace {

const QHash<QString, QString> &pageObjectNames()
{
    static const QHash<QString, QString> names{{u"general"_s, u"generalPage"_s},
                                               {u"notifications"_s, u"notificationsPage"_s},
                                               {u"date-time"_s, u"dateTimePage"_s},
                                               {u"new-tasks"_s, u"newTasksPage"_s},
                                               {u"focus"_s, u"focusPage"_s},
                                               {u"habits"_s, u"habitsPage"_s},
                                               {u"smart-lists"_s, u"smartListsPage"_s},
                                               {u"shortcuts"_s, u"shortcutsPage"_s},
                                               {u"data"_s, u"dataPage"_s}};
    return names;
}

} // namespace

PreferencesWindowController::PreferencesWindowController(Rooms rooms)
    : m_rooms(std::move(rooms))
    , m_preferences(m_rooms.kit.manager(), m_rooms.kit.account(), m_rooms.kit.defaults(),
                    m_rooms.kit.center())
    , m_care(m_rooms.kit, m_rooms.relaunch)
{
    m_rooms.menu.handle(MenuCommand::Preferences, *this, [this] { show(); });
    m_rooms.menu.handle(MenuCommand::ShowShortcuts, *this, [this] { show(u"shortcuts"_s); });
}

PreferencesWindowController::~PreferencesWindowController() = default;

bool PreferencesWindowController::hasPage(const QString &page)
{
    return page.isEmpty() || pageObjectNames().contains(page);
}

void PreferencesWindowController::show(const QString &page)
{
    if (!m_rooms.kit.account().isSignedIn()) return;
    // Made afresh, so that it shows what is so now.
    if (!m_window || !m_window->isVisible()) make();
    m_window->showPage(pageObjectNames().value(page, u"generalPage"_s));
    m_window->show();
    m_window->raise();
    m_window->activateWindow();
}

void PreferencesWindowController::close()
{
    // Signing out may be asked for by the window's own button, which is still on the stack.
    if (!m_window) return;
    m_window->hide();
    m_window.release()->deleteLater();
}

void PreferencesWindowController::make()
{
    m_window = std::make_unique<PreferencesWindow>();
    auto *general = new GeneralPage{m_preferences, m_rooms.loginItem};
    connect(general, &GeneralPage::badgeChanged, this, [this] { m_rooms.refreshBadge(); });
    auto *data = new DataPage{m_preferences, m_care, m_rooms.menu};
    connect(data, &DataPage::done, m_window.get(), &PreferencesWindow::showMessage);
    m_window->addPage(general);
    m_window->addPage(new NotificationsPage{m_preferences});
    m_window->addPage(new DateTimePage{m_preferences});
    m_window->addPage(new NewTasksPage{m_preferences});
    m_window->addPage(new FocusPage{
        m_preferences, {m_rooms.kit.manager(), m_rooms.kit.center(), m_rooms.kit.account().currentUserID()}});
    m_window->addPage(new HabitsPage{m_preferences});
    m_window->addPage(new SmartListsPage{m_preferences});
    m_window->addPage(new ShortcutsPage{m_preferences, m_rooms.menu});
    m_window->addPage(data);
}
