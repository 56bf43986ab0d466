#include "views/menu/HiddenMenuBar.h"

#include "views/menu/MainMenu.h"

#include <QApplication>
#include <QKeyEvent>
#include <QMenu>

using namespace Qt::StringLiterals;

HiddenMenuBar::HiddenMenuBar(MainMenu &menu, QWidget &window) : QMenuBar(&window), m_menu(menu)
{
    setObjectName(u"menuBar"_s);
    setNativeMenuBar(false);
    setFocusPolicy(Qt::StrongFocus);
    setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Fixed); // the columns have the rest
    hide();
    // Of the whole program: the key goes to whichever widget has the focus.
    qApp->installEventFilter(this);
    menu.handle(MenuCommand::ShowMenuBar, *this, [this] { toggle(); });
}

void HiddenMenuBar::toggle()
{
    if (isVisible()) return putAway();
    if (actions().isEmpty()) {
        m_menu.fill(*this);
        const QList<QAction *> menus = actions();
        for (const QAction *each : menus)
            connect(each->menu(), &QMenu::aboutToHide, this, &HiddenMenuBar::putAwayWhenDone,
                    Qt::QueuedConnection);
    }
    m_focusBefore = window()->focusWidget();
    show();
    setFocus(Qt::MenuBarFocusReason);
    setActiveAction(actions().constFirst());
}

void HiddenMenuBar::putAway()
{
    if (QWidget *menu = QApplication::activePopupWidget()) menu->close();
    setActiveAction(nullptr);
    hide();
    if (m_focusBefore) m_focusBefore->setFocus(Qt::MenuBarFocusReason);
    m_focusBefore.clear();
}

// From one menu to the next there is an active action.
void HiddenMenuBar::putAwayWhenDone()
{
    if (isVisible() && !activeAction() && !QApplication::activePopupWidget()) putAway();
}

bool HiddenMenuBar::eventFilter(QObject *watched, QEvent *event)
{
    const QEvent::Type type = event->type();
    if (type == QEvent::MouseButtonPress) m_isAltAlone = false;
    // A key that is a shortcut is seen as ShortcutOverride alone.
    const bool isPress = type == QEvent::KeyPress || type == QEvent::ShortcutOverride;
    if ((isPress || type == QEvent::KeyRelease) && watched->isWidgetType() && window()->isActiveWindow()) {
        const auto *key = static_cast<QKeyEvent *>(event);
        const bool isAlt = key->key() == Qt::Key_Alt;
        if (isPress)
            m_isAltAlone = isAlt && !(key->modifiers() & ~Qt::AltModifier);
        else if (isAlt && std::exchange(m_isAltAlone, false))
            toggle();
    }
    return QMenuBar::eventFilter(watched, event);
}

void HiddenMenuBar::keyPressEvent(QKeyEvent *event)
{
    if (event->key() == Qt::Key_Escape) return putAway();
    QMenuBar::keyPressEvent(event);
}

void HiddenMenuBar::focusOutEvent(QFocusEvent *event)
{
    QMenuBar::focusOutEvent(event);
    if (event->reason() != Qt::PopupFocusReason) hide();
}
