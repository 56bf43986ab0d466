#include "views/tasklist/TaskRowDelegate.h"

#include "model/settings/KWLocalizedString.h"
#include "model/text/DisplayTitle.h"
#include "views/tasklist/TaskDateColor.h"
#include "views/tasklist/TaskListModel.h"
#include "views/tasklist/TaskRowLayout.h"
#include "views/theme/Fonts.h"
#include "views/theme/Icons.h"
#include "views/theme/Metrics.h"
#include "views/theme/Painting.h"
#include "views/theme/Theme.h"

#include <QLineEdit>
#include <QPainter>

using namespace Qt::StringLiterals;

namespace {

// Far more than any row is wide; shaping a text of 100,000 characters to show its first words is not free.
constexpr int mostCharactersShown = 500;

bool isSelected(const QStyleOptionViewItem &option) { return option.state & QStyle::State_Selected; }

QColor faintColor(const QStyleOptionViewItem &option)
{
    return isSelected(option) ? Theme::current().secondaryText : Theme::current().faintText;
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

    const auto byKeyboard = QStyle::State_HasFocus | QStyle::State_KeyboardFocusChange;
    if ((option.state & byKeyboard) == byKeyboard)
        Painting::focusRing(painter, layout.background, Metrics::rowRadius);
}

void paintTitle(QPainter &painter, const QRect &bounds, const KWTaskListItemModel &task,
                const QStyleOptionViewItem &option)
{
    const Theme &theme = Theme::current();
    QString title = task.title.left(mostCharactersShown).simplified();
    const bool isEmpty = title.isEmpty();
    if (isEmpty) title = displayTitle(title);
    const bool isQuiet = isEmpty || task.isClosed();

    painter.setPen(!isQuiet ? theme.text : isSelected(option) ? theme.secondaryText : theme.doneText);
    const auto side = option.direction == Qt::RightToLeft ? Qt::AlignRight : Qt::AlignLeft;
    Fonts::drawLine(painter, Fonts::Role::Body, bounds, side, title,
                    task.isClosed() ? Fonts::LineStyle::StruckOut : Fonts::LineStyle::Plain);
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
    case TaskRowLayout::PieceKind::Repeat:
        Icons::paint(painter, piece.bounds, Icon::Repeat, piece.bounds.width(), faint);
        return;
    case TaskRowLayout::PieceKind::Date:
        painter.setPen(date);
        break;
    default:
        break;
    }
    Fonts::drawLine(painter, Fonts::Role::Secondary, piece.bounds, Qt::AlignRight, piece.text);
}

} // namespace

TaskRowDelegate::TaskRowDelegate(const TaskListModel &model, CheckProgress checkProgress, QObject *parent)
    : QStyledItemDelegate(parent), m_model(model), m_checkProgress(std::move(checkProgress))
{
}

void TaskRowDelegate::paint(QPainter *painter, const QStyleOptionViewItem &option,
                            const QModelIndex &index) const
{
    const KWTaskListItemModel &task = m_model.rowAt(index);
    const TaskRowLayout layout = layOutTaskRow(option.rect, option.direction, m_model, task);
    painter->save();
    paintBackground(*painter, layout, option);

    const double settled = task.isClosed() ? 1 : 0;
    Painting::checkbox(*painter, layout.checkbox,
                       {.checked = m_checkProgress(task.sid).value_or(settled),
                        .priority = task.priority,
                        .isAbandoned = task.status == KWTaskStatusAbandoned,
                        .isHovered = m_hoveredCheckbox == index});

    if (!(option.state & QStyle::State_Editing)) paintTitle(*painter, layout.title, task, option);
    const QColor date = taskDateColor(m_model.dateTextOf(task).tone, faintColor(option));
    for (const TaskRowLayout::Piece &piece : layout.pieces)
        paintPiece(*painter, piece, date, option);
    painter->restore();
}

QSize TaskRowDelegate::sizeHint(const QStyleOptionViewItem &, const QModelIndex &) const
{
    return {Metrics::scaled(120), Metrics::scaled(Metrics::taskRow)};
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

void TaskRowDelegate::updateEditorGeometry(QWidget *editor, const QStyleOptionViewItem &option,
                                           const QModelIndex &index) const
{
    const TaskRowLayout layout = layOutTaskRow(option.rect, option.direction, m_model, m_model.rowAt(index));
    editor->setGeometry(layout.title.adjusted(-2, Metrics::grid, 0, -Metrics::grid));
}

void TaskRowDelegate::setModelData(QWidget *editor, QAbstractItemModel *, const QModelIndex &index) const
{
    const auto *line = qobject_cast<QLineEdit *>(editor);
    const KWTaskListItemModel &task = m_model.rowAt(index);
    if (line && line->text() != task.title) Q_EMIT titleEdited(task.sid, line->text());
}
