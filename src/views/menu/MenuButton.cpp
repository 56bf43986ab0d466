#include "views/menu/MenuButton.h"

#include "model/settings/KWLocalizedString.h"
#include "views/menu/MainMenu.h"
#include "views/theme/Icons.h"
#include "views/theme/Metrics.h"
#include "views/theme/Painting.h"
#include "views/theme/Theme.h"

#include <QKeyEvent>
#include <QMenu>
#include <QPainter>

using namespace Qt::StringLiterals;

namespace {
constexpr int menuButtonSide = 28;
}

MenuButton::MenuButton(QWidget *parent) : QAbstractButton(parent)
{
    setObjectName(u"menuButton"_s);
    setAccessibleName(KWLocalizedString("Main menu"));
    setToolTip(KWLocalizedString("Main menu"));
    setAttribute(Qt::WA_Hover);
    setFocusPolicy(Qt::TabFocus);
    setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
}

void MenuButton::setMenu(MainMenu &menu)
{
    connect(this, &QAbstractButton::clicked, &menu, [this, &menu] { open(menu); });
}

void MenuButton::open(MainMenu &menu)
{
    QMenu *popup = menu.makePopup(*this);
    connect(popup, &QMenu::aboutToHide, popup, &QObject::deleteLater);
    const bool isMirrored = layoutDirection() == Qt::RightToLeft;
    const int x = isMirrored ? width() - popup->sizeHint().width() : 0;
    popup->popup(mapToGlobal(QPoint{x, height() + 2}));
}

QSize MenuButton::sizeHint() const
{
    return QSize{Metrics::scaled(menuButtonSide), Metrics::scaled(menuButtonSide)};
}

void MenuButton::paintEvent(QPaintEvent *)
{
    const Theme &theme = Theme::current();
    QPainter painter{this};
    if (underMouse() || isDown()) Painting::roundedBox(painter, rect(), Metrics::rowRadius, theme.selection);
    const int icon = Metrics::scaled(Metrics::icon);
    Icons::paint(painter, rect(), Icon::Menu, icon, underMouse() ? theme.text : theme.secondaryText);
    if (hasFocus()) Painting::focusRing(painter, rect(), Metrics::rowRadius);
}

void MenuButton::keyPressEvent(QKeyEvent *event)
{
    const bool opens =
        event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter || event->key() == Qt::Key_Down;
    if (opens)
        click();
    else
        QAbstractButton::keyPressEvent(event);
}
