#include "views/tasklist/TaskRowLayout.h"

#include "model/text/DisplayTitle.h"
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
constexpr int longestTaskName = 100; // in characters
constexpr int itemInset = 2;         // of the checkbox of a checklist item

int widthOf(const Piece &piece)
{
    switch (piece.kind) {
    case PieceKind::Pin:
    case PieceKind::Attachment:
    case PieceKind::Focus:
    case PieceKind::Repeat:
        return Metrics::scaled(Metrics::icon) - 2;
    case PieceKind::Tag:
        return std::min(Painting::pillWidth(piece.text), Metrics::scaled(140));
    case PieceKind::ListName:
    case PieceKind::TaskName:
    case PieceKind::Habit:
        return std::min(Fonts::width(Fonts::Role::Secondary, piece.text), Metrics::scaled(140));
    default:
        return Fonts::width(Fonts::Role::Secondary, piece.text);
    }
}

QList<Piece> piecesOf(const TaskListModel &model, const TaskListRow &row)
{
    const KWTaskListItemModel &task = row.task;
    QList<Piece> pieces;
    const auto add = [&pieces](PieceKind kind, const QString &text) { pieces.append({kind, text, {}}); };
    const QString date = model.dateTextOf(row).text;
    if (task.isHabit()) {
        if (const QString progress = model.progressOf(task); !progress.isEmpty())
            add(PieceKind::Habit, progress);
        return pieces;
    }
    if (task.isChecklistItem()) {
        add(PieceKind::TaskName, displayTitle(task.ownerTitle.left(longestTaskName)));
        add(PieceKind::Date, date);
        return pieces;
    }
    if (task.isPinned()) add(PieceKind::Pin, {});
    if (task.checklistCount > 0)
        add(PieceKind::Progress, u"%1/%2"_s.arg(task.checklistDoneCount).arg(task.checklistCount));
    for (const QString &tag : task.tags.first(std::min<qsizetype>(task.tags.size(), mostTags)))
        add(PieceKind::Tag, model.tagLabel(tag));
    if (task.attachmentCount > 0) add(PieceKind::Attachment, {});
    if (task.focusDuration > 0) add(PieceKind::Focus, {});
    if (task.repeats && !task.isLaterOccurrence()) add(PieceKind::Repeat, {});
    if (const QString list = model.listName(task); !list.isEmpty()) add(PieceKind::ListName, list);
    if (!date.isEmpty()) add(PieceKind::Date, date);
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
         {PieceKind::ListName, PieceKind::Tag, PieceKind::Focus, PieceKind::Attachment, PieceKind::Progress,
          PieceKind::Pin, PieceKind::Repeat, PieceKind::TaskName}) {
        if (totalWidth(pieces) <= space) return;
        pieces.removeIf([kind](const Piece &piece) { return piece.kind == kind; });
    }
}

// Deeper ones stand no further in: the title needs its room.
constexpr int mostLevelsShown = 6;

int indentOf(int depth) { return std::min(depth, mostLevelsShown) * Metrics::scaled(Metrics::titleIndent); }

QRect checkboxIn(const QRect &bounds, int depth)
{
    const int side = Metrics::scaled(Metrics::checkbox);
    return {bounds.left() + Metrics::rowOutset + indentOf(depth), bounds.top() + (bounds.height() - side) / 2,
            side, side};
}

// The strip before the checkbox.
QRect triangleIn(const QRect &bounds, int depth)
{
    const int width = Metrics::rowOutset + 2;
    return {checkboxIn(bounds, depth).left() - width, bounds.top(), width, bounds.height()};
}

} // namespace

QRect taskRowCheckbox(const QRect &bounds, Qt::LayoutDirection direction, int depth)
{
    return QStyle::visualRect(direction, bounds, checkboxIn(bounds, depth));
}

QRect taskRowTriangle(const QRect &bounds, Qt::LayoutDirection direction, int depth)
{
    return QStyle::visualRect(direction, bounds, triangleIn(bounds, depth));
}

TaskRowLayout layOutTaskRow(const QRect &bounds, Qt::LayoutDirection direction, const TaskListModel &model,
                            const TaskListRow &row)
{
    const int titleLeft = checkboxIn(bounds, row.depth).left() + Metrics::scaled(Metrics::titleIndent);
    int right = bounds.right() + 1 - Metrics::rowOutset;

    TaskRowLayout layout;
    layout.background = bounds;
    layout.checkbox = checkboxIn(bounds, row.depth);
    if (row.task.isChecklistItem()) {
        const int inset = Metrics::scaled(itemInset);
        layout.checkbox.adjust(inset, inset, -inset, -inset);
    }
    if (row.hasChildren) layout.triangle = triangleIn(bounds, row.depth);
    layout.hairline = {titleLeft, bounds.bottom(), right - titleLeft, 1};
    layout.pieces = piecesOf(model, row);
    leaveOutWhatDoesNotFit(layout.pieces, (right - titleLeft) / 2);
    for (auto piece = layout.pieces.rbegin(); piece != layout.pieces.rend(); ++piece) {
        const int width = widthOf(*piece);
        piece->bounds = {right - width, bounds.top(), width, bounds.height()};
        right -= width + Metrics::gap;
    }
    layout.title = {titleLeft, bounds.top(), std::max(0, right - titleLeft), bounds.height()};

    const auto mirror = [&](QRect &rect) { rect = QStyle::visualRect(direction, bounds, rect); };
    mirror(layout.triangle);
    mirror(layout.checkbox);
    mirror(layout.title);
    mirror(layout.hairline);
    for (Piece &piece : layout.pieces)
        mirror(piece.bounds);
    return layout;
}
