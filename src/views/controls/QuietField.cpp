#include "views/controls/QuietField.h"

#include "views/theme/Fonts.h"
#include "views/theme/Metrics.h"
#include "views/theme/Theme.h"
#include "views/theme/ThemeConfigurator.h"

#include <QKeyEvent>
#include <QPainter>
#include <QStyle>

QuietField::QuietField(const QString &adds, Icon icon, QWidget *parent) : QLineEdit(parent), m_icon(icon)
{
    setFrame(false);
    setPlaceholderText(adds);
    setAccessibleName(adds);
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
    connect(&ThemeConfigurator::shared(), &ThemeConfigurator::themeChanged, this, &QuietField::dress);
    dress();
}

void QuietField::dress()
{
    setFont(Fonts::font(Fonts::Role::Body));
    QPalette colors = palette();
    colors.setColor(QPalette::Base, Qt::transparent);
    colors.setColor(QPalette::PlaceholderText, Theme::current().faintText);
    setPalette(colors);
    const int indent = Metrics::sideMargin + Metrics::scaled(Metrics::titleIndent) - 2;
    setTextMargins(isRightToLeft() ? Metrics::sideMargin : indent, 0,
                   isRightToLeft() ? indent : Metrics::sideMargin, 0);
    updateGeometry();
}

QSize QuietField::sizeHint() const { return {Metrics::scaled(120), Metrics::scaled(Metrics::sidebarRow)}; }

void QuietField::paintEvent(QPaintEvent *event)
{
    QLineEdit::paintEvent(event);
    QPainter painter{this};
    const int icon = Metrics::scaled(Metrics::icon);
    Icons::paint(painter,
                 QStyle::visualRect(layoutDirection(), rect(), {Metrics::sideMargin, 0, icon, height()}),
                 m_icon, icon, hasFocus() ? Theme::current().accent : Theme::current().faintText);
}

void QuietField::keyPressEvent(QKeyEvent *event)
{
    if (event->key() == Qt::Key_Escape && !text().isEmpty())
        clear();
    else if (event->key() == Qt::Key_Escape)
        event->ignore();
    else
        QLineEdit::keyPressEvent(event);
}
