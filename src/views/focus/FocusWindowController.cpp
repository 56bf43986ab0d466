#include "views/focus/FocusWindowController.h"

#include "model/OrvaneKit.h"
#include "model/settings/KWLocalizedString.h"
#include "views/focus/FocusPresenter.h"
#include "views/focus/FocusWindow.h"
#include "views/menu/MainMenu.h"

FocusWindowController::FocusWindowController(Rooms rooms) : m_rooms(rooms)
{
    m_rooms.menu.handle(MenuCommand::ShowFocusWindow, *this, [this] { toggle(); });
    m_rooms.menu.setHindrance(MenuCommand::ShowFocusWindow, [this] {
        return m_rooms.presenter.isEnabled() ? QString{}
                                             : KWLocalizedString("Focus is switched off in the preferences.");
    });
    connect(&m_rooms.presenter, &FocusPresenter::changed, this, [this] {
        if (m_window && m_window->isVisible() && !m_rooms.presenter.isEnabled()) m_window->hide();
    });
}

FocusWindowController::~FocusWindowController() = default;

void FocusWindowController::show()
{
    if (!m_rooms.presenter.kit().account().isSignedIn()) return;
    if (!m_window) m_window = std::make_unique<FocusWindow>(m_rooms.presenter, m_rooms.defaults);
    m_window->bringUp();
}

void FocusWindowController::toggle()
{
    if (m_window && m_window->isVisible())
        m_window->hide();
    else
        show();
}
