#include "views/sidebar/ProjectRowDelegate.h"

#include "model/records/KWSmartProject.h"
#include "model/settings/KWLocalizedString.h"
#include "views/sidebar/ListIcon.h"
#include "views/sidebar/ProjectListTreeModel.h"
#include "views/theme/Fonts.h"
#include "views/theme/Icons.h"
#include "views/theme/ItemColors.h"
#include "views/theme/Metrics.h"
#include "views/theme/Painting.h"
#include "views/theme/Theme.h"

#include <QFocusEvent>
#include <QFontMetrics>
#include <QKeyEvent>
#include <QLineEdit>
#include <QPainter>

using namespace Qt::StringLiterals;

namespace {

constexpr int outerMargin = 10; // from the sidebar's edge to a row's background
constexpr int innerMargin = 8;  // from there to the icon
constexpr int rowGap = 1;
constexpr int indentationStep = 18; // of a list in a folder
constexpr int chevronSize = 12;
constexpr int headerDrop = 6; // a header stands closer to what it heads

constexpr int longestName = 200;
constexpr const char *isEnding = "isEnding"; // of an editor: it is not asked twice

int iconWidth() { return Metrics::scaled(Metrics::icon); }

QRect backgroundBounds(const QRect &row) { return row.adjusted(outerMargin, 0, -outerMargin, -rowGap); }

// A list keeps its own colour.
QColor iconColor(const KWProjectListNode &node, bool isSelected)
{
    const Theme &theme = Theme::current();
    const bool isColored = node.type() == KWProjectListNodeType::project && !node.color().isEmpty();
    return isColored ? QColor{node.color()} : isSelected ? theme.accentText : theme.secondaryText;
}

QString dotColor(const KWProjectListNode &node)
{
    const bool isCalendar = node.type() == KWProjectListNodeType::calsub_url;
    return isCalendar ? ItemColors::edgeOf(node.color()).name() : node.color();
}

Qt::Alignment leading(const QStyleOptionViewItem &option)
{
    return option.direction == Qt::RightToLeft ? Qt::AlignRight : Qt::AlignLeft;
}

} // namespace

ProjectRowDelegate::ProjectRowDelegate(const ProjectListTreeModel &model, IsExpanded isExpanded,
                                       SpacerHeight spacerHeight, QObject *parent)
    : QStyledItemDelegate(parent)
    , m_model(model)
    , m_isExpanded(std::move(isExpanded))
    , m_spacerHeight(std::move(spacerHeight))
{
}

QSize ProjectRowDelegate::sizeHint(const QStyleOptionViewItem &, const QModelIndex &index) const
{
    if (m_model.isSpacer(index)) return {0, m_spacerHeight()};
    const int height = m_model.isSectionHeader(index) ? Metrics::sectionHeader : Metrics::sidebarRow + rowGap;
    return {Metrics::scaled(80), Metrics::scaled(height)};
}

QRect ProjectRowDelegate::titleBounds(const QRect &row, const QModelIndex &index) const
{
    const QRect bounds =
        row.adjusted(outerMargin + innerMargin, 0, -outerMargin - innerMargin - countWidth(index), 0);
    if (m_model.isSectionHeader(index)) return bounds.adjusted(0, headerDrop, 0, 0);
    const int indentation = Metrics::scaled(indentationStep) * m_model.indentation(index);
    return bounds.adjusted(indentation + iconWidth() + innerMargin + 1, 0, 0, -rowGap);
}

QString ProjectRowDelegate::countText(const QModelIndex &index) const
{
    const int count = m_model.countOf(index);
    return count == 0 ? QString{} : QLocale{}.toString(count);
}

// With the space before it; a header has its button there.
int ProjectRowDelegate::countWidth(const QModelIndex &index) const
{
    if (m_model.isSectionHeader(index)) return iconWidth() + 2 * Metrics::grid;
    const QString text = countText(index);
    return text.isEmpty() ? 0 : Fonts::width(Fonts::Role::Secondary, text) + 2 * Metrics::grid;
}

QRect ProjectRowDelegate::chevronBounds(const QRect &row, const QModelIndex &index) const
{
    const bool isHeader = m_model.isSectionHeader(index);
    const QRect title = titleBounds(row, index);
    const int text =
        Fonts::width(isHeader ? Fonts::Role::CaptionStrong : Fonts::Role::Body, index.data().toString());
    return {title.left() + std::min(text, title.width()) + Metrics::grid, title.top(),
            Metrics::scaled(chevronSize), title.height()};
}

QRect ProjectRowDelegate::foldBounds(const QRect &row, Qt::LayoutDirection direction,
                                     const QModelIndex &index) const
{
    if (m_model.rowCount(index) == 0 && !m_model.isSectionHeader(index)) return {};
    // A row that shows no list has nothing else to do.
    if (!(m_model.flags(index) & Qt::ItemIsSelectable)) return row;
    return QStyle::visualRect(direction, row, chevronBounds(row, index).adjusted(-4, 0, 4, 0));
}

QRect ProjectRowDelegate::addBounds(const QRect &row, Qt::LayoutDirection direction,
                                    const QModelIndex &index) const
{
    if (!m_model.nodeAt(index) || !m_model.isSectionHeader(index)) return {};
    const int side = iconWidth() + 2 * Metrics::grid;
    const QRect bounds{row.right() - outerMargin - innerMargin - side + Metrics::grid + 1,
                       row.top() + headerDrop, side, row.height() - headerDrop};
    return QStyle::visualRect(direction, row, bounds);
}

QWidget *ProjectRowDelegate::createEditor(QWidget *parent, const QStyleOptionViewItem &,
                                          const QModelIndex &index) const
{
    auto *editor = new QLineEdit{parent};
    editor->setObjectName(u"nameEditor"_s);
    editor->setAccessibleName(KWLocalizedString("Name"));
    editor->setFont(Fonts::font(Fonts::Role::Body));
    editor->setMaxLength(longestName);
    editor->setContextMenuPolicy(Qt::NoContextMenu);
    if (index.data().toString().isEmpty()) editor->setPlaceholderText(KWLocalizedString("Name"));
    return editor;
}

void ProjectRowDelegate::setEditorData(QWidget *editor, const QModelIndex &index) const
{
    auto &field = *static_cast<QLineEdit *>(editor);
    // The row may change while its name is typed.
    if (field.isModified()) return;
    const auto typed = std::exchange(m_typedName, std::nullopt);
    field.setText(typed.value_or(index.data(Qt::EditRole).toString()));
    field.selectAll();
}

void ProjectRowDelegate::updateEditorGeometry(QWidget *editor, const QStyleOptionViewItem &option,
                                              const QModelIndex &index) const
{
    const QRect bounds = titleBounds(option.rect, index).adjusted(-Metrics::gap, 0, countWidth(index), 0);
    editor->setGeometry(QStyle::visualRect(option.direction, option.rect, bounds));
}

bool ProjectRowDelegate::eventFilter(QObject *object, QEvent *event)
{
    auto *editor = qobject_cast<QLineEdit *>(object);
    if (editor && event->type() == QEvent::KeyPress) {
        const int key = static_cast<const QKeyEvent *>(event)->key();
        const bool isNamed = key == Qt::Key_Return || key == Qt::Key_Enter;
        if (!isNamed && key != Qt::Key_Escape) return false;
        end(*editor, isNamed);
        return true;
    }
    if (editor && event->type() == QEvent::FocusOut) {
        const Qt::FocusReason reason = static_cast<const QFocusEvent *>(event)->reason();
        if (reason != Qt::ActiveWindowFocusReason && reason != Qt::PopupFocusReason) end(*editor, true);
        return false;
    }
    return QStyledItemDelegate::eventFilter(object, event);
}

void ProjectRowDelegate::finish(QWidget &editor) { end(static_cast<QLineEdit &>(editor), true); }

void ProjectRowDelegate::end(QLineEdit &editor, bool isNamed)
{
    if (editor.property(isEnding).toBool()) return;
    editor.setProperty(isEnding, true);
    if (isNamed)
        Q_EMIT named(&editor, editor.text());
    else
        Q_EMIT namingAbandoned(&editor);
}

void ProjectRowDelegate::paint(QPainter *painter, const QStyleOptionViewItem &option,
                               const QModelIndex &index) const
{
    if (!m_model.nodeAt(index)) return;
    painter->save();
    if (m_model.isSectionHeader(index))
        paintHeader(*painter, option, index);
    else
        paintNode(*painter, option, index);

    const bool hasFocus = option.state & QStyle::State_HasFocus;
    const bool isMarked = option.state & QStyle::State_Selected;
    if (hasFocus && (!isMarked || option.state & QStyle::State_KeyboardFocusChange))
        Painting::focusRing(*painter, backgroundBounds(option.rect), Metrics::rowRadius);
    painter->restore();
}

void ProjectRowDelegate::paintChevron(QPainter &painter, const QStyleOptionViewItem &option,
                                      const QModelIndex &index) const
{
    const bool isFolded = !m_isExpanded(index);
    if (m_model.rowCount(index) == 0 || (!isFolded && !(option.state & QStyle::State_MouseOver))) return;
    const QRect bounds = QStyle::visualRect(option.direction, option.rect, chevronBounds(option.rect, index));
    const Icon icon = isFolded ? Icon::ChevronRight : Icon::ChevronDown;
    painter.save();
    if (isFolded && option.direction == Qt::RightToLeft) {
        painter.translate(2 * bounds.center().x() + 1, 0);
        painter.scale(-1, 1);
    }
    const QColor color =
        option.state & QStyle::State_Selected ? Theme::current().secondaryText : Theme::current().faintText;
    Icons::paint(painter, bounds, icon, bounds.width(), color);
    painter.restore();
}

void ProjectRowDelegate::paintHeader(QPainter &painter, const QStyleOptionViewItem &option,
                                     const QModelIndex &index) const
{
    painter.setPen(Theme::current().faintText);
    const QRect title = QStyle::visualRect(option.direction, option.rect, titleBounds(option.rect, index));
    Fonts::drawLine(painter, Fonts::Role::CaptionStrong, title, leading(option), index.data().toString());
    paintChevron(painter, option, index);
    const QRect add = addBounds(option.rect, option.direction, index);
    const bool isHovered = option.state & QStyle::State_MouseOver;
    if (!add.isEmpty())
        Icons::paint(painter, add, Icon::Add, iconWidth(),
                     isHovered ? Theme::current().secondaryText : Theme::current().faintText);
}

void ProjectRowDelegate::paintNode(QPainter &painter, const QStyleOptionViewItem &option,
                                   const QModelIndex &index) const
{
    const Theme &theme = Theme::current();
    const KWProjectListNode &node = *m_model.nodeAt(index);
    const bool isSelected = option.state & QStyle::State_Selected;
    const bool isEnabled = m_model.flags(index) & Qt::ItemIsEnabled;
    if (isSelected || (isEnabled && option.state & QStyle::State_MouseOver))
        Painting::roundedBox(painter, backgroundBounds(option.rect), Metrics::rowRadius,
                             isSelected ? theme.selection : theme.hover);

    const QRect title = titleBounds(option.rect, index);
    const QRect mark{title.left() - iconWidth() - innerMargin - 1, title.top(), iconWidth(), title.height()};
    const QRect visualMark = QStyle::visualRect(option.direction, option.rect, mark);
    if (const auto icon = iconOfNode(node, m_model.isInbox(index)))
        Icons::paint(painter, visualMark, *icon, iconWidth(), iconColor(node, isSelected));
    else if (node.type() != KWProjectListNodeType::emptyHolder)
        Painting::dot(painter, QRectF{visualMark}.center(), dotColor(node));

    painter.setPen(isEnabled ? theme.text : theme.faintText);
    Fonts::drawLine(painter, Fonts::Role::Body, QStyle::visualRect(option.direction, option.rect, title),
                    leading(option), node.title());
    paintChevron(painter, option, index);

    const QRect bounds{title.right() + 1, title.top(), countWidth(index), title.height()};
    painter.setPen(isSelected ? theme.secondaryText : theme.faintText);
    const auto side = option.direction == Qt::RightToLeft ? Qt::AlignLeft : Qt::AlignRight;
    Fonts::drawLine(painter, Fonts::Role::Secondary,
                    QStyle::visualRect(option.direction, option.rect, bounds), side, countText(index));
}
