#pragma once

#include <QStyledItemDelegate>

#include <functional>
#include <optional>

class KWProjectListNode;
class ProjectListTreeModel;

/// Paints the rows of the sidebar: icon or colour dot, title, count; section headers; the spacer.
class ProjectRowDelegate : public QStyledItemDelegate {
    Q_OBJECT

public:
    using CountOf = std::function<std::optional<int>(const KWProjectListNode &)>;
    using IsExpanded = std::function<bool(const QModelIndex &)>;
    using SpacerHeight = std::function<int()>;

    ProjectRowDelegate(const ProjectListTreeModel &model, IsExpanded isExpanded, SpacerHeight spacerHeight,
                       QObject *parent = nullptr);

    void setCountOf(CountOf countOf) { m_countOf = std::move(countOf); }

    void paint(QPainter *painter, const QStyleOptionViewItem &option,
               const QModelIndex &index) const override;
    QSize sizeHint(const QStyleOptionViewItem &option, const QModelIndex &index) const override;

    /// The part of a row that folds and unfolds it: all of a section header, the chevron of a folder.
    QRect foldBounds(const QRect &row, Qt::LayoutDirection direction, const QModelIndex &index) const;

private:
    void paintHeader(QPainter &painter, const QStyleOptionViewItem &option, const QModelIndex &index) const;
    void paintNode(QPainter &painter, const QStyleOptionViewItem &option, const QModelIndex &index) const;
    QRect titleBounds(const QRect &row, const QModelIndex &index) const;
    QRect chevronBounds(const QRect &row, const QModelIndex &index) const;
    void paintChevron(QPainter &painter, const QStyleOptionViewItem &option, const QModelIndex &index) const;

    const ProjectListTreeModel &m_model;
    IsExpanded m_isExpanded;
    SpacerHeight m_spacerHeight;
    CountOf m_countOf;
};
