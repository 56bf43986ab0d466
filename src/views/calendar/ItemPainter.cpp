#include "views/calendar/ItemPainter.h"

#include "model/settings/KWLocalizedString.h"
#include "model/text/DisplayTitle.h"
#include "views/theme/Fonts.h"
#include "views/theme/Icons.h"
#include "views/theme/ItemColors.h"
#include "views/theme/Metrics.h"
#include "views/theme/Painting.h"
#include "views/theme/Theme.h"
#include "views/wording/DateWording.h"

#include <QFontMetrics>
#include <QLocale>
#include <QPainter>
#include <QStyle>
#include <QTextLayout>

#include <algorithm>

namespace {

constexpr int itemEdge = 3;
constexpr int itemPadding = 6;
constexpr int itemTopPadding = 3;
constexpr int repeatMarkSize = 11;
constexpr int leastTextWidth = 12;
constexpr int leastMarkedShare = 4; // of the mark of repetition in a box that has one
constexpr int mostTitleLines = 6;
constexpr double itemRadius = 5;
constexpr double draggedOpacity = 0.55;

using Fonts::Role;

// Lines as wide as the box, a long word broken where it must be; the last one holds the rest.
QStringList titleLines(const QString &text, int width, int most)
{
    QTextLayout layout{text, Fonts::font(Role::CaptionStrong)};
    layout.setTextOption([] {
        QTextOption option;
        option.setWrapMode(QTextOption::WrapAtWordBoundaryOrAnywhere);
        return option;
    }());
    QStringList lines;
    int end = 0;
    layout.beginLayout();
    while (end < text.size() && lines.size() + 1 < most) {
        QTextLine line = layout.createLine();
        line.setLineWidth(width);
        lines += text.mid(end, line.textLength()).trimmed();
        end += line.textLength();
    }
    layout.endLayout();
    if (end < text.size()) lines += text.mid(end).trimmed();
    return lines;
}

ItemColors colorsOf(const CalendarItem &item, KWCalendarColorBy colorBy)
{
    const bool isByPriority = colorBy == KWCalendarColorByPriority && !item.taskID.isEmpty();
    const QString color = isByPriority ? Theme::current().priority(item.priority).mark.name() : item.color;
    if (item.kind == CalendarItem::Kind::Focus)
        return ItemColors::ofClosed(color.isEmpty() ? Theme::current().secondaryText.name() : color);
    return item.isClosed ? ItemColors::ofClosed(color) : ItemColors::of(color);
}

/// One item on its place.
class PaintedItem {
public:
    PaintedItem(QPainter &painter, const ItemPlace &place, const CalendarItem &item,
                KWCalendarColorBy colorBy, Qt::LayoutDirection direction)
        : m_painter(painter)
        , m_place(place)
        , m_item(item)
        , m_direction(direction)
        , m_colors(colorsOf(item, colorBy))
        , m_lineHeight(QFontMetrics{Fonts::font(Role::CaptionStrong)}.height())
    {
    }

    void paintBackground() const
    {
        // Rounded where the item begins or ends, cut where it goes on.
        const int cut = int(itemRadius) + 1;
        const bool isBox = m_place.shape == ItemPlace::Shape::Box;
        const int before = m_place.beginsBefore ? cut : 0;
        const int after = m_place.goesOn ? cut : 0;
        const QRect whole = isBox ? m_place.bounds.adjusted(0, -before, 0, after)
                                  : visual(m_place.bounds.adjusted(-before, 0, after, 0));
        m_painter.setClipRect(m_place.bounds, Qt::IntersectClip);
        Painting::roundedBox(m_painter, whole, itemRadius, m_colors.fill);
        if (!hasEdge()) return;
        m_painter.save();
        m_painter.setClipRect(visual({m_place.bounds.topLeft(), QSize{itemEdge, m_place.bounds.height()}}),
                              Qt::IntersectClip);
        Painting::roundedBox(m_painter, whole, itemRadius, m_colors.edge);
        m_painter.restore();
    }

    void paintText() const
    {
        const QRect inner =
            visual(m_place.bounds.adjusted(itemPadding + (hasEdge() ? itemEdge : 0), 0, -itemPadding, 0));
        if (inner.width() < leastTextWidth) return;
        const int lines = (inner.height() - itemTopPadding) / m_lineHeight;
        if (m_place.shape == ItemPlace::Shape::Bar || lines < 2)
            paintLine(inner);
        else
            paintLines(inner, lines);
    }

private:
    bool hasEdge() const { return m_place.shape == ItemPlace::Shape::Box || !m_item.isAllDay; }
    QRect visual(const QRect &bounds) const
    {
        return QStyle::visualRect(m_direction, m_place.bounds, bounds);
    }
    Qt::Alignment side() const { return QStyle::visualAlignment(m_direction, Qt::AlignLeft); }
    QString title() const { return displayTitle(m_item.title); }
    QString time() const
    {
        return m_item.isAllDay || m_place.beginsBefore ? QString{}
                                                       : DateWording::timeOfDay(m_item.start, QLocale{});
    }

    // Where there is little room the title is worth more.
    int markWidth() const
    {
        const int mark = Metrics::scaled(repeatMarkSize) + Metrics::grid;
        return m_item.repeats && m_place.bounds.width() > leastMarkedShare * mark ? mark : 0;
    }

    // A line of the title, the last one with the mark of repetition.
    void paintTitle(const QRect &line, const QString &text, bool isLast) const
    {
        const int mark = isLast ? markWidth() : 0;
        const int width = std::min(Fonts::width(Role::CaptionStrong, text), line.width() - mark);
        const auto within = [&](int left, int wide) {
            return QStyle::visualRect(m_direction, line,
                                      {line.left() + left, line.top(), wide, line.height()});
        };
        m_painter.setPen(m_colors.text);
        Fonts::drawLine(m_painter, Role::CaptionStrong, within(0, width), side(), text,
                        m_item.isClosed ? Fonts::LineStyle::StruckOut : Fonts::LineStyle::Plain);
        if (mark > 0)
            Icons::paint(m_painter, within(width + Metrics::grid, mark - Metrics::grid), Icon::Repeat,
                         Metrics::scaled(repeatMarkSize), m_colors.note);
    }

    // The time stands before the title, where both fit.
    void paintLine(const QRect &inner) const
    {
        const QString note = time();
        const int noteWidth = note.isEmpty() ? 0 : Fonts::width(Role::Caption, note) + Metrics::grid;
        const bool hasNote = noteWidth > 0 && inner.width() > 2 * noteWidth;
        QRect line = inner;
        if (inner.height() > 2 * m_lineHeight) line.setHeight(2 * m_lineHeight);
        const auto within = [&](int left, int width) {
            return QStyle::visualRect(m_direction, line,
                                      {line.left() + left, line.top(), width, line.height()});
        };
        const int taken = hasNote ? noteWidth : 0;
        if (hasNote) {
            m_painter.setPen(m_colors.note);
            Fonts::drawLine(m_painter, Role::Caption, within(0, noteWidth), side(), note);
        }
        paintTitle(within(taken, line.width() - taken), title(), true);
    }

    void paintLines(const QRect &inner, int lines) const
    {
        const QString note = time();
        const int forTitle = std::clamp(note.isEmpty() ? lines : lines - 1, 1, mostTitleLines);
        const int whole = Fonts::width(Role::CaptionStrong, title()) + markWidth();
        const QStringList words = whole <= inner.width()
                                      ? QStringList{title()}
                                      : titleLines(title(), inner.width() - markWidth(), forTitle);
        QRect line{inner.left(), inner.top() + itemTopPadding, inner.width(), m_lineHeight};
        for (const QString &each : words) {
            paintTitle(line, each, &each == &words.last());
            line.translate(0, m_lineHeight);
        }
        if (Fonts::width(Role::Caption, note) > line.width()) return;
        m_painter.setPen(m_colors.note);
        Fonts::drawLine(m_painter, Role::Caption, line, side(), note);
    }

    QPainter &m_painter;
    const ItemPlace &m_place;
    const CalendarItem &m_item;
    const Qt::LayoutDirection m_direction;
    const ItemColors m_colors;
    const int m_lineHeight;
};

} // namespace

void ItemPainter::paint(QPainter &painter, const ItemPlace &place, const CalendarItem &item, State state,
                        Qt::LayoutDirection direction)
{
    painter.save();
    if (state.isDragged) painter.setOpacity(draggedOpacity);
    const PaintedItem painted{painter, place, item, state.colorBy, direction};
    painted.paintBackground();
    painted.paintText();
    if (state.isSelected) Painting::focusRing(painter, place.bounds, itemRadius);
    painter.restore();
}

void ItemPainter::paintMore(QPainter &painter, const MorePlace &place, Qt::LayoutDirection direction)
{
    const QString number = QLocale{}.toString(place.count);
    const QString words = KWLocalizedString("+%1 more").arg(number);
    const bool hasRoom = Fonts::width(Role::Caption, words) + 2 * itemPadding <= place.bounds.width();
    painter.save();
    const bool isHigh = place.bounds.height() > 2 * Metrics::scaled(20);
    if (isHigh) Painting::roundedBox(painter, place.bounds, itemRadius, Theme::current().hover);
    painter.setPen(Theme::current().secondaryText);
    const int padding = hasRoom ? itemPadding : 0;
    const Qt::Alignment side = hasRoom && !isHigh ? QStyle::visualAlignment(direction, Qt::AlignLeft)
                                                  : Qt::Alignment{Qt::AlignHCenter};
    Fonts::drawLine(painter, Role::Caption, place.bounds.adjusted(padding, 0, -padding, 0), side,
                    hasRoom ? words : u'+' + number);
    painter.restore();
}
