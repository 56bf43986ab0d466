#include "views/tasklist/TaskRowDelegate.h"

#include "model/settings/KWLocalizedString.h"
#include "model/text/DisplayTitle.h"
#include "model/text/TextMerge.h"
#include "views/tasklist/KWTaskListSectionCell.h"
#include "views/tasklist/TaskDateColor.h"
#include "views/tasklist/TaskListModel.h"
#include "views/tasklist/TaskRowLayout.h"
#include "views/theme/Fonts.h"
#include "views/theme/Icons.h"
#include "views/theme/ItemColors.h"
#include "views/theme/Metrics.h"
#include "views/theme/Painting.h"
#include "views/theme/Theme.h"

#include <QLineEdit>
#include <QPainter>

using namespace Qt::StringLiterals;

namespace {

constexpr const char *titleBefore = "titleBefore"; // a property of the editor

// Far more than any row is wide; shaping a text of 100,000 characters to show its first words is not free.
constexpr int mostCharactersShown = 500;

constexpr int sectionGap = 8; // between a header and the section above it

int gapAbove(const QModelIndex &section) { return section.row() > 0 ? Metrics::scaled(sectionGap) : 0; }

QRect headerBounds(const QRect &row, const QModelIndex &section)
{
    return row.adjusted(0, gapAbove(section), 0, 0);
}

bool isSelected(const QStyleOptionViewItem &option) { return option.state & QStyle::State_Selected; }

QColor faintColor(const QStyleOptionViewItem &option)
{
    return isSelected(option) ? Theme::current().secondaryText : Theme::current().faintText;
}

bool hasKeyboardFocus(const QStyleOptionViewItem &option)
{
    const auto byKeyboard = QStyle::State_HasFocus | QStyle::State_KeyboardFocusChange;
    return (option.state & byKeyboard) == byKeyboard;
}

void paintBackground(QPainter &painter, const TaskRowLayout &layout, const QStyleOptionViewItem &option)
{
    const Theme &theme = Theme::current();
    if (isSelected(option))
        Painting::roundedBox(painter, layout.background, Metrics::rowRadius, theme.selection);
    else if (option.state & QStyle::State_MouseOver)
        Painting::roundedBox(painter, layout.background, Metrics::rowRadius, theme.hover);
    else
        painter.fillRect(layout.hairline, theme.hairline);

    if (hasKeyboardFocus(option)) Painting::focusRing(painter, layout.background, Metrics::rowRadius);
}

void paintTriangle(QPainter &painter, const TaskRowLayout &layout, bool isFolded,
                   const QStyleOptionViewItem &option)
{
    if (layout.triangle.isEmpty()) return;
    painter.save();
    if (isFolded && option.direction == Qt::RightToLeft) {
        painter.translate(2 * layout.triangle.center().x() + 1, 0);
        painter.scale(-1, 1);
    }
    Icons::paint(painter, layout.triangle, isFolded ? Icon::ChevronRight : Icon::ChevronDown,
                 layout.triangle.width(), faintColor(option));
    painter.restore();
}

void paintTitle(QPainter &painter, const QRect &bounds, const KWTaskListItemModel &task,
                const QStyleOptionViewItem &option)
{
    const Theme &theme = Theme::current();
    QString title = task.title.left(mostCharactersShown).simplified();
    const bool isEmpty = title.isEmpty();
    if (isEmpty) title = displayTitle(title);
    const bool isQuiet = isEmpty || task.isClosed() || task.isLaterOccurrence();

    painter.setPen(!isQuiet ? theme.text : isSelected(option) ? theme.secondaryText : theme.doneText);
    const auto side = option.direction == Qt::RightToLeft ? Qt::AlignRight : Qt::AlignLeft;
    Fonts::drawLine(painter, Fonts::Role::Body, bounds, side, title,
                    task.isClosed() ? Fonts::LineStyle::StruckOut : Fonts::LineStyle::Plain);
}

void paintMark(QPainter &painter, const TaskRowLayout::Piece &piece, Icon icon, const QColor &color)
{
    Icons::paint(painter, piece.bounds, icon, piece.bounds.width(), color);
}

void paintPiece(QPainter &painter, const TaskRowLayout::Piece &piece, const QColor &date,
                const QStyleOptionViewItem &option)
{
    const QColor faint = faintColor(option);
    painter.setPen(faint);
    switch (piece.kind) {
    case TaskRowLayout::PieceKind::Tag:
        Painting::pill(painter, piece.bounds, piece.text);
        return;
    case TaskRowLayout::PieceKind::Pin:
        return paintMark(painter, piece, Icon::Pin, faint);
    case TaskRowLayout::PieceKind::Attachment:
        return paintMark(painter, piece, Icon::Attachment, faint);
    case TaskRowLayout::PieceKind::Focus:
        return paintMark(painter, piece, Icon::Focus, faint);
    case TaskRowLayout::PieceKind::Repeat:
        return paintMark(painter, piece, Icon::Repeat, faint);
    case TaskRowLayout::PieceKind::Date:
        painter.setPen(date);
        break;
    default:
        break;
    }
    Fonts::drawLine(painter, Fonts::Role::Secondary, piece.bounds, Qt::AlignRight, piece.text);
}

void paintLoadMore(QPainter &painter, const QString &title, const QStyleOptionViewItem &option)
{
    const Theme &theme = Theme::current();
    if (option.state & QStyle::State_MouseOver)
        Painting::roundedBox(painter, option.rect, Metrics::rowRadius, theme.hover);
    if (hasKeyboardFocus(option)) Painting::focusRing(painter, option.rect, Metrics::rowRadius);
    const int indent = Metrics::rowOutset + Metrics::scaled(Metrics::titleIndent);
    painter.setPen(theme.accentText);
    Fonts::drawLine(painter, Fonts::Role::Body, option.rect.adjusted(indent, 0, -indent, 0),
                    QStyle::visualAlignment(option.direction, Qt::AlignLeft),
                    title.isEmpty() ? KWLocalizedString("Show more") : title);
}

} // namespace

TaskRowDelegate::TaskRowDelegate(const TaskListModel &model, CheckProgress checkProgress, QObject *parent)
    : QStyledItemDelegate(parent), m_model(model), m_checkProgress(std::move(checkProgress))
{
}

void TaskRowDelegate::paint(QPainter *painter, const QStyleOptionViewItem &option,
                            const QModelIndex &index) const
{
    painter->save();
    switch (m_model.rowAt(index).kind) {
    case TaskListRow::Kind::Section:
        paintSection(*painter, option, index);
        break;
    case TaskListRow::Kind::LoadMore:
        paintLoadMore(*painter, m_model.rowAt(index).title, option);
        break;
    case TaskListRow::Kind::Task:
        paintTask(*painter, option, index);
        break;
    }
    painter->restore();
}

void TaskRowDelegate::paintSection(QPainter &painter, const QStyleOptionViewItem &option,
                                   const QModelIndex &index) const
{
    const TaskListRow &row = m_model.rowAt(index);
    const SectionLook look = m_model.lookOf(row);
    KWTaskListSectionCell{row, look, headerBounds(option.rect, index), option.direction}.paint(
        painter, {.isHovered = bool(option.state & QStyle::State_MouseOver),
                  .hasKeyboardFocus = hasKeyboardFocus(option),
                  .hoveredPart = m_hovered == index ? m_hoveredPart : RowPart::None});
}

void TaskRowDelegate::paintTask(QPainter &painter, const QStyleOptionViewItem &option,
                                const QModelIndex &index) const
{
    const TaskListRow &row = m_model.rowAt(index);
    const KWTaskListItemModel &task = row.task;
    const TaskRowLayout layout = layOutTaskRow(option.rect, option.direction, m_model, row);
    paintBackground(painter, layout, option);
    paintTriangle(painter, layout, row.isFolded, option);

    const double settled = task.isClosed() ? 1 : 0;
    if (task.isEvent())
        Icons::paint(painter, layout.checkbox, Icon::Calendar, layout.checkbox.width(),
                     ItemColors::edgeOf(task.color));
    else if (task.isLaterOccurrence())
        Icons::paint(painter, layout.checkbox, Icon::Repeat, layout.checkbox.width(), faintColor(option));
    else
        Painting::checkbox(painter, layout.checkbox,
                           {.checked = m_checkProgress(task.sid).value_or(settled),
                            .priority = task.isChecklistItem() ? KWTaskPriorityNone : task.priority,
                            .isAbandoned = task.status == KWTaskStatusAbandoned,
                            .isHovered = m_hovered == index && m_hoveredPart == RowPart::Checkbox});

    if (!(option.state & QStyle::State_Editing)) paintTitle(painter, layout.title, task, option);
    const QColor date = taskDateColor(m_model.dateTextOf(row).tone, faintColor(option));
    for (const TaskRowLayout::Piece &piece : layout.pieces)
        paintPiece(painter, piece, date, option);
}

RowPart TaskRowDelegate::partAt(const QPoint &position, const QModelIndex &index, const QRect &bounds,
                                Qt::LayoutDirection direction) const
{
    const TaskListRow &row = m_model.rowAt(index);
    if (row.kind == TaskListRow::Kind::LoadMore) return RowPart::LoadMore;
    if (row.kind == TaskListRow::Kind::Section) {
        const SectionLook look = m_model.lookOf(row);
        return KWTaskListSectionCell{row, look, headerBounds(bounds, index), direction}.partAt(position);
    }
    if (row.hasChildren && taskRowTriangle(bounds, direction, row.depth).contains(position))
        return RowPart::Triangle;
    if (!row.task.isTaskOrItem() && !row.task.isHabit()) return RowPart::None;
    constexpr int slack = Metrics::grid + 2; // a comfortable target is larger than the box
    const QRect box = taskRowCheckbox(bounds, direction, row.depth);
    return box.adjusted(-slack, -slack, slack, slack).contains(position) ? RowPart::Checkbox : RowPart::None;
}

void TaskRowDelegate::setHovered(const QModelIndex &index, RowPart part)
{
    m_hovered = index;
    m_hoveredPart = part;
}

QSize TaskRowDelegate::sizeHint(const QStyleOptionViewItem &, const QModelIndex &index) const
{
    const bool isSection = m_model.rowAt(index).kind == TaskListRow::Kind::Section;
    if (!isSection) return {Metrics::scaled(120), Metrics::scaled(Metrics::taskRow)};
    return {Metrics::scaled(120), Metrics::scaled(Metrics::listSection) + gapAbove(index)};
}

QWidget *TaskRowDelegate::createEditor(QWidget *parent, const QStyleOptionViewItem &,
                                       const QModelIndex &) const
{
    auto *editor = new QLineEdit{parent};
    editor->setObjectName(u"taskRowTitleEditor"_s);
    editor->setAccessibleName(KWLocalizedString("Title"));
    editor->setMaxLength(1'000'000);
    editor->setFrame(false);
    editor->setFont(Fonts::font(Fonts::Role::Body));
    return editor;
}

void TaskRowDelegate::setEditorData(QWidget *editor, const QModelIndex &index) const
{
    auto &line = *static_cast<QLineEdit *>(editor);
    // The row may change while its title is typed.
    if (line.isModified()) return;
    line.setText(m_model.rowAt(index).task.title);
    line.setProperty(titleBefore, line.text());
    line.selectAll();
}

void TaskRowDelegate::updateEditorGeometry(QWidget *editor, const QStyleOptionViewItem &option,
                                           const QModelIndex &index) const
{
    const TaskRowLayout layout = layOutTaskRow(option.rect, option.direction, m_model, m_model.rowAt(index));
    editor->setGeometry(layout.title.adjusted(-2, Metrics::grid, 0, -Metrics::grid));
}

void TaskRowDelegate::setModelData(QWidget *editor, QAbstractItemModel *, const QModelIndex &index) const
{
    const auto *line = qobject_cast<QLineEdit *>(editor);
    const KWTaskListItemModel &task = m_model.rowAt(index).task;
    if (!line) return;
    const QString title = mergedText(line->property(titleBefore).toString(), line->text(), task.title, u' ');
    if (title != task.title) Q_EMIT titleEdited(task.sid, task.isChecklistItem(), title);
}
