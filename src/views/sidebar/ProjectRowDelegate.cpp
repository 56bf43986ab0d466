#include "views/sidebar/ProjectRowDelegate.h"

#include "model/records/KWSmartProject.h"
#include "views/sidebar/ProjectListTreeModel.h"
#include "views/theme/Fonts.h"
#include "views/theme/Icons.h"
#include "views/theme/Metrics.h"
#include "views/theme/Painting.h"
#include "views/theme/Theme.h"

#include <QFontMetrics>
#include <QPainter>

#include <array>

using namespace Qt::StringLiterals;

namespace {

constexpr int outerMargin = 10; // from the sidebar's edge to a row's background
constexpr int innerMargin = 8;  // from there to the icon
constexpr int rowGap = 1;
constexpr int indentationStep = 18;
constexpr int chevronSize = 12;
constexpr int headerDrop = 6; // a header stands closer to what it heads

int countWidth() { return Metrics::scaled(36); }
int iconWidth() { return Metrics::scaled(Metrics::icon); }

Icon smartIcon(const QString &identifier)
{
    static const std::array<std::pair<const KWSmartProject *, Icon>, 9> icons{{
        {&KWSmartProject::all(), Icon::All},
        {&KWSmartProject::today(), Icon::Today},
        {&KWSmartProject::tomorrow(), Icon::Tomorrow},
        {&KWSmartProject::next7days(), Icon::Next7Days},
        {&KWSmartProject::assignedToMe(), Icon::AssignedToMe},
        {&KWSmartProject::completed(), Icon::Completed},
        {&KWSmartProject::abandoned(), Icon::Abandoned},
        {&KWSmartProject::trash(), Icon::Trash},
        {&KWSmartProject::summary(), Icon::Summary},
    }};
    for (const auto &[project, icon] : icons)
        if (project->identifier() == identifier) return icon;
    return Icon::All;
}

std::optional<Icon> iconOf(const KWProjectListNode &node, bool isInbox)
{
    if (isInbox) return Icon::Inbox;
    switch (node.type()) {
    case KWProjectListNodeType::smartProject:
        return smartIcon(node.entityID());
    case KWProjectListNodeType::group:
    case KWProjectListNodeType::team:
    case KWProjectListNodeType::team_personal:
        return Icon::Folder;
    case KWProjectListNodeType::archived:
        return Icon::Archive;
    case KWProjectListNodeType::tag:
        return Icon::Tag;
    case KWProjectListNodeType::filter:
        return Icon::Filter;
    default:
        return std::nullopt;
    }
}

QRect backgroundBounds(const QRect &row) { return row.adjusted(outerMargin, 0, -outerMargin, -rowGap); }

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
    QRect bounds = row.adjusted(outerMargin + innerMargin, 0, -outerMargin - innerMargin - countWidth(), 0);
    if (m_model.isSectionHeader(index)) return bounds.adjusted(0, headerDrop, 0, 0);
    const int indentation = indentationStep * m_model.indentation(index);
    return bounds.adjusted(indentation + iconWidth() + innerMargin + 1, 0, 0, -rowGap);
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
    if (m_model.isSectionHeader(index)) return row;
    if (m_model.rowCount(index) == 0) return {};
    return QStyle::visualRect(direction, row, chevronBounds(row, index).adjusted(-4, 0, 4, 0));
}

void ProjectRowDelegate::paint(QPainter *painter, const QStyleOptionViewItem &option,
                               const QModelIndex &index) const
{
    if (m_model.isSpacer(index)) return;
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
    if (const auto icon = iconOf(node, m_model.isInbox(index)))
        Icons::paint(painter, visualMark, *icon, iconWidth(),
                     isSelected ? theme.accentText : theme.secondaryText);
    else if (isEnabled)
        Painting::dot(painter, QRectF{visualMark}.center(), node.color());

    painter.setPen(isEnabled ? theme.text : theme.faintText);
    Fonts::drawLine(painter, Fonts::Role::Body, QStyle::visualRect(option.direction, option.rect, title),
                    leading(option), node.title());
    paintChevron(painter, option, index);

    const auto count = m_countOf ? m_countOf(node) : std::nullopt;
    if (!count || *count == 0) return;
    const QRect bounds{title.right() + 1, title.top(), countWidth(), title.height()};
    painter.setPen(isSelected ? theme.secondaryText : theme.faintText);
    const auto side = option.direction == Qt::RightToLeft ? Qt::AlignLeft : Qt::AlignRight;
    Fonts::drawLine(painter, Fonts::Role::Secondary,
                    QStyle::visualRect(option.direction, option.rect, bounds), side,
                    option.locale.toString(*count));
}
