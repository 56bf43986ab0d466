#include "views/habits/HabitRowDelegate.h"

#include "views/habits/HabitDayMark.h"
#include "views/habits/HabitListModel.h"
#include "views/habits/HabitLook.h"
#include "views/habits/HabitPhrases.h"
#include "views/theme/Fonts.h"
#include "views/theme/Metrics.h"
#include "views/theme/Painting.h"
#include "views/theme/Theme.h"

#include <QFontMetrics>
#include <QPainter>

namespace {

constexpr int habitRow = 60;
constexpr int habitSectionRow = 40;
constexpr int tileSide = 36;
constexpr int tileGap = 14;
constexpr int dayCell = 40;
constexpr int daySide = 26;
constexpr int foldMark = 12;
constexpr int moreSide = 24;

bool hasKeyboard(const QStyleOptionViewItem &option)
{
    return (option.state & QStyle::State_HasFocus) && (option.state & QStyle::State_KeyboardFocusChange);
}

} // namespace

HabitRowDelegate::HabitRowDelegate(const HabitListModel &model, QObject *parent)
    : QStyledItemDelegate(parent), m_model(model)
{
}

int HabitRowDelegate::dayWidth() { return Metrics::scaled(dayCell); }

QRect HabitRowDelegate::circleIn(const QRect &cell)
{
    QRect circle{0, 0, Metrics::scaled(daySide), Metrics::scaled(daySide)};
    circle.moveCenter(cell.center());
    return circle;
}

QRect HabitRowDelegate::moreIn(const QRect &row, Qt::LayoutDirection direction)
{
    const int side = Metrics::scaled(moreSide);
    const QRect button{row.right() + 1 - Metrics::rowOutset - side, row.center().y() - side / 2, side, side};
    return QStyle::visualRect(direction, row, button);
}

QSize HabitRowDelegate::sizeHint(const QStyleOptionViewItem &, const QModelIndex &index) const
{
    const int lines = QFontMetrics{Fonts::font(Fonts::Role::Body)}.height() +
                      QFontMetrics{Fonts::font(Fonts::Role::Secondary)}.height();
    return {Metrics::scaled(dayCell), m_model.isSection(index)
                                          ? Metrics::scaled(habitSectionRow)
                                          : std::max(Metrics::scaled(habitRow), lines + 2 * Metrics::gap)};
}

void HabitRowDelegate::paint(QPainter *painter, const QStyleOptionViewItem &option,
                             const QModelIndex &index) const
{
    painter->save();
    if (m_model.isSection(index)) {
        if (index.column() == 0) paintSection(*painter, option, index);
    } else if (const HabitDay *day = m_model.dayAt(index)) {
        const QRect circle = circleIn(option.rect);
        HabitDayMark::paint(*painter, circle, *day, HabitLook::color(m_model.rowAt(index)->habit.color));
        if (hasKeyboard(option)) {
            const QRectF ring = QRectF{circle}.adjusted(-4, -4, 4, 4);
            Painting::focusRing(*painter, ring, ring.width() / 2);
        }
    } else if (index.column() == 0) {
        paintName(*painter, option, index);
    }
    painter->restore();
}

void HabitRowDelegate::paintSection(QPainter &painter, const QStyleOptionViewItem &option,
                                    const QModelIndex &index) const
{
    const Theme &theme = Theme::current();
    const HabitSection &section = m_model.sectionAt(index);
    const bool isOpen = option.state & QStyle::State_Open;
    const QRect row = option.rect;
    int left = row.left() + Metrics::rowOutset;
    const auto take = [&](int width) {
        const QRect taken{left, row.top(), width, row.height()};
        left += width + Metrics::grid;
        return QStyle::visualRect(option.direction, row, taken);
    };
    const int mark = Metrics::scaled(foldMark);
    const QRect markAt = take(mark);
    painter.save();
    if (!isOpen && option.direction == Qt::RightToLeft) {
        painter.translate(2 * markAt.center().x() + 1, 0);
        painter.scale(-1, 1);
    }
    Icons::paint(painter, markAt, isOpen ? Icon::ChevronDown : Icon::ChevronRight, mark, theme.secondaryText);
    painter.restore();
    const Qt::Alignment side = QStyle::visualAlignment(option.direction, Qt::AlignLeft);
    const QString count = QLocale{}.toString(section.rows.size());
    const int countWidth = Fonts::width(Fonts::Role::Secondary, count);
    const QRect more = moreIn(row, option.direction);
    const int room = row.width() - left - countWidth - more.width() - 2 * Metrics::gap;
    painter.setPen(theme.secondaryText);
    Fonts::drawLine(
        painter, Fonts::Role::BodyStrong,
        take(std::clamp(Fonts::width(Fonts::Role::BodyStrong, section.name), 0, std::max(0, room))), side,
        section.name);
    left += Metrics::grid;
    painter.setPen(theme.faintText);
    Fonts::drawLine(painter, Fonts::Role::Secondary, take(countWidth), side, count);
    if (m_hovered == index || hasKeyboard(option))
        Icons::paint(painter, more, Icon::More, Metrics::scaled(Metrics::icon), theme.secondaryText);
    if (hasKeyboard(option)) Painting::focusRing(painter, row, Metrics::rowRadius);
}

void HabitRowDelegate::paintName(QPainter &painter, const QStyleOptionViewItem &option,
                                 const QModelIndex &index) const
{
    const Theme &theme = Theme::current();
    const KWHabitModel &habit = m_model.rowAt(index)->habit;
    const QRect cell = option.rect;
    const int tile = Metrics::scaled(tileSide);
    const QRect tileAt{cell.left() + Metrics::rowOutset, cell.top() + (cell.height() - tile) / 2, tile, tile};
    HabitLook::paintTile(painter, QStyle::visualRect(option.direction, cell, tileAt), habit);

    const int left = tileAt.right() + 1 + Metrics::scaled(tileGap);
    const int nameHeight = QFontMetrics{Fonts::font(Fonts::Role::Body)}.height();
    const int noteHeight = QFontMetrics{Fonts::font(Fonts::Role::Secondary)}.height();
    const int top = cell.top() + (cell.height() - nameHeight - noteHeight) / 2;
    const int width = std::max(0, cell.right() - Metrics::gap - left);
    const auto visual = [&](const QRect &logical) {
        return QStyle::visualRect(option.direction, cell, logical);
    };
    const Qt::Alignment side = QStyle::visualAlignment(option.direction, Qt::AlignLeft);
    painter.setPen(theme.text);
    Fonts::drawLine(painter, Fonts::Role::Body, visual({left, top, width, nameHeight}), side, habit.name);
    painter.setPen(option.state & QStyle::State_Selected ? theme.secondaryText : theme.faintText);
    Fonts::drawLine(painter, Fonts::Role::Secondary, visual({left, top + nameHeight, width, noteHeight}),
                    side, HabitPhrases::summary(habit, m_model.firstWeekday(), QLocale{}));
}
