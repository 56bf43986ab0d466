#include "views/tasklist/KWTaskListSectionCell.h"

#include "lists/TaskListRows.h"
#include "model/settings/KWLocalizedString.h"
#include "views/theme/Fonts.h"
#include "views/theme/Metrics.h"
#include "views/theme/Painting.h"
#include "views/theme/Theme.h"

#include <QPainter>
#include <QStyle>

namespace {

constexpr int triangleSide = 12;
constexpr int buttonSide = 24;

QString postponeText() { return KWLocalizedString("Postpone"); }

} // namespace

KWTaskListSectionCell::KWTaskListSectionCell(const TaskListRow &row, const SectionLook &look,
                                             const QRect &bounds, Qt::LayoutDirection direction)
    : m_row(row), m_look(look), m_bounds(bounds), m_direction(direction)
{
    int right = bounds.right() + 1 - Metrics::rowOutset;
    const auto take = [&](int width) {
        right -= width;
        return QRect{right, bounds.top(), width, bounds.height()};
    };
    if (look.canPostpone) {
        m_postpone = take(Fonts::width(Fonts::Role::Secondary, postponeText()));
        right -= Metrics::grid;
    }
    m_more = take(Metrics::scaled(buttonSide));
    if (look.canAdd) m_add = take(Metrics::scaled(buttonSide));
    const int left = bounds.left() + Metrics::rowOutset;
    m_title = {left, bounds.top(), std::max(0, right - Metrics::gap - left), bounds.height()};
}

QRect KWTaskListSectionCell::visual(const QRect &logical) const
{
    return QStyle::visualRect(m_direction, m_bounds, logical);
}

bool KWTaskListSectionCell::isExpand() const { return !m_row.isFolded; }

RowPart KWTaskListSectionCell::partAt(const QPoint &position) const
{
    if (visual(m_more).contains(position)) return RowPart::More;
    if (visual(m_add).contains(position)) return RowPart::Add;
    if (visual(m_postpone).contains(position)) return RowPart::Postpone;
    return RowPart::Header;
}

void KWTaskListSectionCell::paint(QPainter &painter, const State &state) const
{
    const Theme &theme = Theme::current();
    paintTitle(painter);
    if (state.isHovered || state.hasKeyboardFocus) {
        paintButton(painter, m_more, Icon::More, state.hoveredPart == RowPart::More);
        if (m_look.canAdd) paintButton(painter, m_add, Icon::Add, state.hoveredPart == RowPart::Add);
    }
    if (m_look.canPostpone) {
        painter.setPen(state.hoveredPart == RowPart::Postpone ? theme.text : theme.accentText);
        Fonts::drawLine(painter, Fonts::Role::Secondary, visual(m_postpone), Qt::AlignHCenter,
                        postponeText());
    }
    if (state.hasKeyboardFocus) Painting::focusRing(painter, m_bounds, Metrics::rowRadius);
}

void KWTaskListSectionCell::paintTitle(QPainter &painter) const
{
    const Theme &theme = Theme::current();
    const QColor color = m_look.isOverdue ? theme.overdueText : theme.secondaryText;
    QRect rest = m_title;
    const auto take = [&rest](int width) {
        const QRect taken{rest.left(), rest.top(), width, rest.height()};
        rest.setLeft(rest.left() + width + Metrics::grid);
        return taken;
    };
    const int triangle = Metrics::scaled(triangleSide);
    painter.save();
    if (!isExpand() && m_direction == Qt::RightToLeft) {
        const int middle = visual({rest.left(), 0, triangle, 1}).center().x();
        painter.translate(2 * middle + 1, 0);
        painter.scale(-1, 1);
    }
    Icons::paint(painter, visual(take(triangle)), isExpand() ? Icon::ChevronDown : Icon::ChevronRight,
                 triangle, color);
    painter.restore();

    if (m_look.icon) {
        const int side = Metrics::scaled(Metrics::icon) - 2;
        const bool hasColor = m_look.priority != KWTaskPriorityNone;
        Icons::paint(painter, visual(take(side)), *m_look.icon, side,
                     hasColor ? theme.priority(m_look.priority).mark : color);
    }
    const Qt::Alignment side = QStyle::visualAlignment(m_direction, Qt::AlignLeft);
    const QString count = QString::number(m_row.count);
    const int countWidth = Fonts::width(Fonts::Role::Secondary, count);
    const int titleWidth = std::clamp(rest.width() - countWidth - Metrics::gap, 0,
                                      Fonts::width(Fonts::Role::BodyStrong, m_row.title));
    painter.setPen(color);
    Fonts::drawLine(painter, Fonts::Role::BodyStrong, visual(take(titleWidth)), side, m_row.title);
    painter.setPen(theme.faintText);
    rest.setLeft(rest.left() + Metrics::grid);
    Fonts::drawLine(painter, Fonts::Role::Secondary, visual(take(countWidth)), side, count);
}

void KWTaskListSectionCell::paintButton(QPainter &painter, const QRect &bounds, Icon icon,
                                        bool isHovered) const
{
    const Theme &theme = Theme::current();
    if (isHovered) {
        QRect box{0, 0, bounds.width(), bounds.width()};
        box.moveCenter(bounds.center());
        Painting::roundedBox(painter, visual(box), Metrics::pillRadius, theme.hover);
    }
    Icons::paint(painter, visual(bounds), icon, Metrics::scaled(Metrics::icon), theme.secondaryText);
}
