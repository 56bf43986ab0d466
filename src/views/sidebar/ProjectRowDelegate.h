#pragma once

#include <QStyledItemDelegate>

#include <functional>
#include <optional>

class KWProjectListNode;
class QLineEdit;
class ProjectListTreeModel;

/// Paints the rows of the sidebar: icon or colour dot, title, count; section headers with the button that
/// adds to them; the spacer. Names are typed in place: Enter and leaving the field give the name, Escape
/// gives it up.
class ProjectRowDelegate : public QStyledItemDelegate {
    Q_OBJECT

public:
    using IsExpanded = std::function<bool(const QModelIndex &)>;
    using SpacerHeight = std::function<int()>;

    ProjectRowDelegate(const ProjectListTreeModel &model, IsExpanded isExpanded, SpacerHeight spacerHeight,
                       QObject *parent = nullptr);

    QWidget *createEditor(QWidget *parent, const QStyleOptionViewItem &option,
                          const QModelIndex &index) const override;
    void setEditorData(QWidget *editor, const QModelIndex &index) const override;
    void setModelData(QWidget *, QAbstractItemModel *, const QModelIndex &) const override {}
    void updateEditorGeometry(QWidget *editor, const QStyleOptionViewItem &option,
                              const QModelIndex &index) const override;
    /// What the next editor shows in place of the title, once.
    void setTypedName(const QString &name) { m_typedName = name; }

    /// Takes what is typed in this editor of a name, as Enter does.
    void finish(QWidget &editor);

    void paint(QPainter *painter, const QStyleOptionViewItem &option,
               const QModelIndex &index) const override;
    QSize sizeHint(const QStyleOptionViewItem &option, const QModelIndex &index) const override;

    /// The part of a row that folds and unfolds it: all of a section header and of a row that shows no list,
    /// the chevron of a folder.
    QRect foldBounds(const QRect &row, Qt::LayoutDirection direction, const QModelIndex &index) const;

    /// The button of a section header that adds to the section; empty for other rows.
    QRect addBounds(const QRect &row, Qt::LayoutDirection direction, const QModelIndex &index) const;

Q_SIGNALS:
    void named(QWidget *editor, const QString &name);
    void namingAbandoned(QWidget *editor);

protected:
    bool eventFilter(QObject *object, QEvent *event) override;

private:
    void end(QLineEdit &editor, bool isNamed);
    void paintHeader(QPainter &painter, const QStyleOptionViewItem &option, const QModelIndex &index) const;
    void paintNode(QPainter &painter, const QStyleOptionViewItem &option, const QModelIndex &index) const;
    QRect titleBounds(const QRect &row, const QModelIndex &index) const;
    QString countText(const QModelIndex &index) const;
    int countWidth(const QModelIndex &index) const;
    QRect chevronBounds(const QRect &row, const QModelIndex &index) const;
    void paintChevron(QPainter &painter, const QStyleOptionViewItem &option, const QModelIndex &index) const;

    const ProjectListTreeModel &m_model;
    IsExpanded m_isExpanded;
    SpacerHeight m_spacerHeight;
    mutable std::optional<QString> m_typedName;
};
