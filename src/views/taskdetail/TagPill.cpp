#include "views/taskdetail/TagPill.h"

#include "model/settings/KWLocalizedString.h"
#include "views/theme/Fonts.h"
#include "views/theme/Icons.h"
#include "views/theme/Metrics.h"
#include "views/theme/Painting.h"
#include "views/theme/Theme.h"

#include <QKeyEvent>
#include <QPainter>
#include <QStyle>

using namespace Qt::StringLiterals;

namespace {

constexpr int pillSide = 8;
constexpr int pillHeight = 20;

int crossSize() { return Metrics::scaled(8); }

} // namespace

TagPill::TagPill(QString name, const QString &label, QWidget *parent)
    : QAbstractButton(parent), m_name(std::move(name))
{
    setObjectName(u"tagPill"_s);
    setText(label);
    const QString does = KWLocalizedString("Remove the tag “%1”").arg(label);
    setAccessibleName(does);
    setToolTip(does);
    setAttribute(Qt::WA_Hover);
    setFocusPolicy(Qt::StrongFocus);
    connect(this, &QAbstractButton::clicked, this, &TagPill::removed);
}

QSize TagPill::sizeHint() const
{
    return {Fonts::width(Fonts::Role::Caption, text()) + 2 * pillSide + crossSize() + Metrics::grid,
            Metrics::scaled(pillHeight)};
}

void TagPill::paintEvent(QPaintEvent *)
{
    const Theme &theme = Theme::current();
    QPainter painter{this};
    Painting::roundedBox(painter, rect(), height() / 2.0, theme.tag);
    const auto visual = [this](const QRect &bounds) {
        return QStyle::visualRect(layoutDirection(), rect(), bounds);
    };
    painter.setPen(theme.secondaryText);
    const int textWidth = width() - 2 * pillSide - crossSize() - Metrics::grid;
    Fonts::drawLine(painter, Fonts::Role::Caption, visual({pillSide, 0, textWidth, height()}),
                    isRightToLeft() ? Qt::AlignRight : Qt::AlignLeft, text());
    Icons::paint(painter, visual({width() - pillSide - crossSize(), 0, crossSize(), height()}), Icon::Close,
                 crossSize(), underMouse() || hasFocus() ? theme.text : theme.secondaryText);
    if (hasFocus()) Painting::focusRing(painter, rect(), height() / 2.0);
}

void TagPill::keyPressEvent(QKeyEvent *event)
{
    if (event->key() == Qt::Key_Delete || event->key() == Qt::Key_Backspace)
        click();
    else
        QAbstractButton::keyPressEvent(event);
}
