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

MenuButton::MenuButton(QWidget *parent) : PaintedButton(parent)
{
    setObjectName(u"menuButton"_s);
    setAccessibleName(KWLocalizedString("Main menu"));
    setToolTip(KWLocalizedString("Main menu"));
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
    return QSize{Metrics::scaled(Metrics::quietButton), Metrics::scaled(Metrics::quietButton)};
}

void MenuButton::paintContent(QPainter &painter)
{
    const Theme &theme = Theme::current();
    if (underMouse() || isDown()) Painting::roundedBox(painter, rect(), Metrics::rowRadius, theme.selection);
    const int icon = Metrics::scaled(Metrics::icon);
    Icons::paint(painter, rect(), Icon::Menu, icon, underMouse() ? theme.text : theme.secondaryText);
}

PaintedButton::Ring MenuButton::ring() const { return {QRectF{rect()}, Metrics::rowRadius}; }

void MenuButton::keyPressEvent(QKeyEvent *event)
{
    if (event->key() == Qt::Key_Down)
        click();
    else
        PaintedButton::keyPressEvent(event);
}
