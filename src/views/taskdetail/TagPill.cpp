#include "views/taskdetail/TagPill.h"

#include "model/settings/KWLocalizedString.h"
#include "views/theme/Fonts.h"
#include "views/theme/Icons.h"
#include "views/theme/Metrics.h"
#include "views/theme/Painting.h"
#include "views/theme/Theme.h"

#include <QKeyEvent>
#include <QPainter>

using namespace Qt::StringLiterals;

namespace {

constexpr int pillSide = 8;
constexpr int pillHeight = 20;

int crossSize() { return Metrics::scaled(8); }

} // namespace

TagPill::TagPill(QString name, const QString &label, QWidget *parent)
    : PaintedButton(parent), m_name(std::move(name))
{
    setObjectName(u"tagPill"_s);
    setText(label);
    const QString does = KWLocalizedString("Remove the tag “%1”").arg(label);
    setAccessibleName(does);
    setToolTip(does);
    connect(this, &QAbstractButton::clicked, this, &TagPill::removed);
}

QSize TagPill::sizeHint() const
{
    return {Fonts::width(Fonts::Role::Caption, text()) + 2 * pillSide + crossSize() + Metrics::grid,
            Metrics::scaled(pillHeight)};
}

void TagPill::paintContent(QPainter &painter)
{
    const Theme &theme = Theme::current();
    Painting::roundedBox(painter, rect(), height() / 2.0, theme.tag);
    painter.setPen(theme.secondaryText);
    const int textWidth = width() - 2 * pillSide - crossSize() - Metrics::grid;
    Fonts::drawLine(painter, Fonts::Role::Caption, visual({pillSide, 0, textWidth, height()}), leading(),
                    text());
    Icons::paint(painter, visual({width() - pillSide - crossSize(), 0, crossSize(), height()}), Icon::Close,
                 crossSize(), underMouse() || isFocusShown() ? theme.text : theme.secondaryText);
}

PaintedButton::Ring TagPill::ring() const { return {QRectF{rect()}, height() / 2.0}; }

void TagPill::keyPressEvent(QKeyEvent *event)
{
    if (event->key() == Qt::Key_Delete || event->key() == Qt::Key_Backspace)
        click();
    else
        PaintedButton::keyPressEvent(event);
}
