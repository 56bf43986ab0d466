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
    nameItself();
    connect(this, &QAbstractButton::clicked, this, &TagPill::removed);
}

// With the space before it.
int TagPill::crossWidth() const { return isEnabled() ? crossSize() + Metrics::grid : 0; }

void TagPill::nameItself()
{
    const QString does = KWLocalizedString("Remove the tag “%1”").arg(text());
    setAccessibleName(isEnabled() ? does : KWLocalizedString("Tag: %1").arg(text()));
    setToolTip(isEnabled() ? does : QString{});
}

void TagPill::changeEvent(QEvent *event)
{
    PaintedButton::changeEvent(event);
    if (event->type() != QEvent::EnabledChange) return;
    nameItself();
    updateGeometry();
}

QSize TagPill::sizeHint() const
{
    return {Fonts::width(Fonts::Role::Caption, text()) + 2 * pillSide + crossWidth(),
            Metrics::scaled(pillHeight)};
}

void TagPill::paintContent(QPainter &painter)
{
    const Theme &theme = Theme::current();
    Painting::roundedBox(painter, rect(), height() / 2.0, theme.tag);
    painter.setPen(theme.secondaryText);
    const int textWidth = width() - 2 * pillSide - crossWidth();
    Fonts::drawLine(painter, Fonts::Role::Caption, visual({pillSide, 0, textWidth, height()}), leading(),
                    text());
    if (!isEnabled()) return;
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
