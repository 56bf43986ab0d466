#include "views/palette/FoundRowDelegate.h"

#include "model/text/DisplayTitle.h"
#include "views/palette/FoundRowsModel.h"
#include "views/theme/Fonts.h"
#include "views/theme/ItemColors.h"
#include "views/theme/Metrics.h"
#include "views/theme/Painting.h"
#include "views/theme/Theme.h"

#include <QFontMetrics>
#include <QPainter>
#include <QTextLayout>

namespace {

constexpr int mostCharactersShown = 300;
constexpr int excerptHeight = 18;

// One line with marked stretches; what does not fit ends in "…".
void drawMarked(QPainter &painter, Fonts::Role role, const QRect &bounds, Qt::Alignment side,
                const QString &text, const QList<TextMark> &marks, const QColor &color)
{
    const QFont &font = Fonts::font(role);
    QString line =
        QFontMetrics{font}.elidedText(text.left(mostCharactersShown), Qt::ElideRight, bounds.width());
    line.replace(u'\n', u' ');
    QTextCharFormat marked;
    marked.setBackground(Theme::current().softAccent);
    marked.setForeground(Theme::current().accentText);
    QList<QTextLayout::FormatRange> formats;
    for (const TextMark &each : marks)
        if (each.position + each.length <= line.size())
            formats.append({int(each.position), int(each.length), marked});
    QTextLayout layout{line, font};
    layout.setFormats(formats);
    layout.setTextOption(QTextOption{side | Qt::AlignAbsolute});
    layout.beginLayout();
    QTextLine shaped = layout.createLine();
    shaped.setLineWidth(bounds.width());
    layout.endLayout();
    painter.setPen(color);
    layout.draw(&painter, QPointF(bounds.left(), bounds.top() + (bounds.height() - shaped.height()) / 2));
}

void paintMark(QPainter &painter, const QRect &bounds, const FoundRow &row, const QColor &color)
{
    if (row.kind == FoundRow::Kind::Task)
        Painting::checkbox(painter, bounds, {.checked = row.isClosed ? 1.0 : 0.0});
    else if (row.icon)
        Icons::paint(painter, bounds, *row.icon, bounds.width(), color);
    else if (row.kind == FoundRow::Kind::List)
        Painting::dot(painter, bounds.center(),
                      row.list.type == KWListIdentifierType::Calendar ? ItemColors::edgeOf(row.color).name()
                                                                      : row.color);
}

QRect markBounds(const QRect &row, Qt::LayoutDirection direction)
{
    const int side = Metrics::scaled(Metrics::icon);
    const int top = row.top() + (Metrics::scaled(Metrics::taskRow) - side) / 2;
    return QStyle::visualRect(direction, row, {row.left() + Metrics::gap, top, side, side});
}

} // namespace

FoundRowDelegate::FoundRowDelegate(const FoundRowsModel &model, QObject *parent)
    : QStyledItemDelegate(parent), m_model(model)
{
}

void FoundRowDelegate::paint(QPainter *painter, const QStyleOptionViewItem &option,
                             const QModelIndex &index) const
{
    const Theme &theme = Theme::current();
    const FoundRow &row = m_model.rowAt(index);
    const bool isSelected = option.state & QStyle::State_Selected;
    painter->save();
    const auto visual = [&option](const QRect &bounds) {
        return QStyle::visualRect(option.direction, option.rect, bounds);
    };
    const QRect inner = option.rect.adjusted(Metrics::gap, 0, -Metrics::gap, 0);
    const Qt::Alignment side = QStyle::visualAlignment(option.direction, Qt::AlignLeft);
    const Qt::Alignment otherSide = QStyle::visualAlignment(option.direction, Qt::AlignRight);
    const QColor faint = isSelected ? theme.secondaryText : theme.faintText;
    if (row.kind == FoundRow::Kind::Heading) {
        painter->setPen(theme.secondaryText);
        Fonts::drawLine(*painter, Fonts::Role::CaptionStrong, visual(inner), side, row.title);
        return painter->restore();
    }
    if (isSelected) Painting::roundedBox(*painter, option.rect, Metrics::rowRadius, theme.selection);
    if (option.state & QStyle::State_HasFocus && isSelected)
        Painting::focusRing(*painter, option.rect, Metrics::rowRadius);
    const int icon = Metrics::scaled(Metrics::icon);
    const int titleHeight = Metrics::scaled(Metrics::taskRow);
    paintMark(*painter, markBounds(option.rect, option.direction), row,
              row.isEnabled ? theme.secondaryText : faint);

    const int noteWidth = std::min(Fonts::width(Fonts::Role::Secondary, row.note), inner.width() / 2);
    const int left = inner.left() + icon + Metrics::gap;
    const QRect title{left, inner.top(), inner.right() - left - noteWidth - Metrics::gap, titleHeight};
    const bool isQuiet = !row.isEnabled || row.isClosed;
    drawMarked(*painter, Fonts::Role::Body, visual(title), side, displayTitle(row.title), row.titleMarks,
               isQuiet ? theme.secondaryText : theme.text);
    painter->setPen(faint);
    Fonts::drawLine(*painter, Fonts::Role::Secondary,
                    visual({inner.right() - noteWidth, inner.top(), noteWidth, titleHeight}), otherSide,
                    row.note);
    if (!row.excerpt.isEmpty())
        drawMarked(*painter, Fonts::Role::Secondary,
                   visual({left, inner.top() + titleHeight - Metrics::grid, inner.right() - left,
                           Metrics::scaled(excerptHeight)}),
                   side, row.excerpt, row.excerptMarks, theme.secondaryText);
    painter->restore();
}

QRect FoundRowDelegate::markArea(const QRect &row, Qt::LayoutDirection direction)
{
    constexpr int nearby = Metrics::grid * 2;
    return markBounds(row, direction).adjusted(-nearby, -nearby, nearby, nearby);
}

QSize FoundRowDelegate::sizeHint(const QStyleOptionViewItem &, const QModelIndex &index) const
{
    const FoundRow &row = m_model.rowAt(index);
    const int height = row.kind == FoundRow::Kind::Heading ? Metrics::scaled(Metrics::sidebarRow)
                       : row.excerpt.isEmpty()             ? Metrics::scaled(Metrics::taskRow)
                                               : Metrics::scaled(Metrics::taskRow + excerptHeight);
    return {Metrics::scaled(120), height};
}
