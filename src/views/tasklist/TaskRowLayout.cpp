#include "views/tasklist/TaskRowLayout.h"

#include "views/tasklist/TaskListModel.h"
#include "views/theme/Fonts.h"
#include "views/theme/Metrics.h"
#include "views/theme/Painting.h"

#include <QFontMetrics>
#include <QStyle>

using namespace Qt::StringLiterals;

namespace {

using Piece = TaskRowLayout::Piece;
using PieceKind = TaskRowLayout::PieceKind;

constexpr int mostTags = 3;

int widthOf(const Piece &piece)
{
    switch (piece.kind) {
    case PieceKind::Repeat:
        return Metrics::scaled(Metrics::icon) - 2;
    case PieceKind::Tag:
        return std::min(Painting::pillWidth(piece.text), Metrics::scaled(140));
    case PieceKind::ListName:
        return std::min(Fonts::width(Fonts::Role::Secondary, piece.text), Metrics::scaled(140));
    default:
        return Fonts::width(Fonts::Role::Secondary, piece.text);
    }
}

QList<Piece> piecesOf(const TaskListModel &model, const KWTaskListItemModel &task)
{
    QList<Piece> pieces;
    const auto add = [&pieces](PieceKind kind, const QString &text) { pieces.append({kind, text, {}}); };
    if (task.checklistCount > 0)
        add(PieceKind::Progress, u"%1/%2"_s.arg(task.checklistDoneCount).arg(task.checklistCount));
    for (const QString &tag : task.tags.first(std::min<qsizetype>(task.tags.size(), mostTags)))
        add(PieceKind::Tag, model.tagLabel(tag));
    if (task.repeats) add(PieceKind::Repeat, {});
    if (const QString list = model.listName(task); !list.isEmpty()) add(PieceKind::ListName, list);
    if (const QString date = model.dateTextOf(task).text; !date.isEmpty()) add(PieceKind::Date, date);
    return pieces;
}

int totalWidth(const QList<Piece> &pieces)
{
    int width = 0;
    for (const Piece &piece : pieces)
        width += Metrics::gap + widthOf(piece);
    return width;
}

void leaveOutWhatDoesNotFit(QList<Piece> &pieces, int space)
{
    for (const PieceKind kind :
         {PieceKind::ListName, PieceKind::Tag, PieceKind::Progress, PieceKind::Repeat}) {
        if (totalWidth(pieces) <= space) return;
        pieces.removeIf([kind](const Piece &piece) { return piece.kind == kind; });
    }
}

QRect checkboxIn(const QRect &row)
{
    const int side = Metrics::scaled(Metrics::checkbox);
    return {row.left() + Metrics::rowOutset, row.top() + (row.height() - side) / 2, side, side};
}

} // namespace

QRect taskRowCheckbox(const QRect &row, Qt::LayoutDirection direction)
{
    return QStyle::visualRect(direction, row, checkboxIn(row));
}

TaskRowLayout layOutTaskRow(const QRect &row, Qt::LayoutDirection direction, const TaskListModel &model,
                            const KWTaskListItemModel &task)
{
    const int titleLeft = row.left() + Metrics::rowOutset + Metrics::scaled(Metrics::titleIndent);
    int right = row.right() + 1 - Metrics::rowOutset;

    TaskRowLayout layout;
    layout.background = row;
    layout.checkbox = checkboxIn(row);
    layout.hairline = {titleLeft, row.bottom(), right - titleLeft, 1};
    layout.pieces = piecesOf(model, task);
    leaveOutWhatDoesNotFit(layout.pieces, (right - titleLeft) / 2);
    for (auto piece = layout.pieces.rbegin(); piece != layout.pieces.rend(); ++piece) {
        const int width = widthOf(*piece);
        piece->bounds = {right - width, row.top(), width, row.height()};
        right -= width + Metrics::gap;
    }
    layout.title = {titleLeft, row.top(), std::max(0, right - titleLeft), row.height()};

    const auto mirror = [&](QRect &rect) { rect = QStyle::visualRect(direction, row, rect); };
    mirror(layout.checkbox);
    mirror(layout.title);
    mirror(layout.hairline);
    for (Piece &piece : layout.pieces)
        mirror(piece.bounds);
    return layout;
}
