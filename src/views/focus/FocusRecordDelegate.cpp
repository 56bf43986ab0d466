#include "views/focus/FocusRecordDelegate.h"

#include "views/theme/Fonts.h"
#include "views/theme/Painting.h"
#include "views/theme/Theme.h"

#include <QPainter>

namespace {

constexpr int recordRow = 36;
constexpr double mostOfNote = 0.6;

} // namespace

void FocusRecordDelegate::paint(QPainter *painter, const QStyleOptionViewItem &option,
                                const QModelIndex &index) const
{
    const Theme &theme = Theme::current();
    const auto visual = [&option](const QRect &bounds) {
        return QStyle::visualRect(option.direction, option.rect, bounds);
    };
    const bool isFocused = option.state & QStyle::State_HasFocus;
    const bool isMarked = isFocused || option.state & QStyle::State_MouseOver;
    if (isMarked) Painting::roundedBox(*painter, option.rect, Metrics::rowRadius, theme.hover);
    const QRect row = option.rect.adjusted(inset, 0, -inset, 0);
    if (!isMarked) painter->fillRect(QRect{row.left(), option.rect.bottom(), row.width(), 1}, theme.hairline);
    const int dot = Metrics::scaled(Metrics::dot);
    Painting::dot(*painter, QRectF{visual({row.left(), row.top(), dot, row.height()})}.center(),
                  index.data(ColorRole).toString());
    const QString note = index.data(NoteRole).toString();
    const int noteWidth = std::min(Fonts::width(Fonts::Role::Secondary, note), int(row.width() * mostOfNote));
    painter->setPen(theme.faintText);
    Fonts::drawLine(*painter, Fonts::Role::Secondary,
                    visual({row.right() - noteWidth, row.top(), noteWidth, row.height()}),
                    QStyle::visualAlignment(option.direction, Qt::AlignRight), note);
    painter->setPen(theme.text);
    const int left = row.left() + dot + Metrics::gap;
    Fonts::drawLine(*painter, Fonts::Role::Body,
                    visual({left, row.top(), row.right() - noteWidth - Metrics::gap - left, row.height()}),
                    QStyle::visualAlignment(option.direction, Qt::AlignLeft), index.data().toString());
    if (isFocused) Painting::focusRing(*painter, option.rect, Metrics::rowRadius);
}

QSize FocusRecordDelegate::sizeHint(const QStyleOptionViewItem &, const QModelIndex &) const
{
    return {Metrics::scaled(200), Metrics::scaled(recordRow)};
}
