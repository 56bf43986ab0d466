#pragma once

#include "model/records/KWListIdentifier.h"

#include <QList>
#include <QString>

#include <functional>
#include <memory>
#include <optional>
#include <utility>
#include <vector>

/// What a node of the sidebar stands for. The raw values are compared against and stored.
enum class KWProjectListNodeType {
    smartProject = 0, ///< a smart list, or the header of a section
    project = 1,
    group = 2,
    archived = 3,
    tag = 4,
    filter = 5,
    divider = 6,
    calsub_local = 7,
    calsub_account = 8,
    calsub_caldav = 9,
    calsub_url = 10,
    team = 11,
    team_personal = 12,
    emptyHolder = 13,
    none = 14,
};

/// A node of the sidebar tree. The parent owns its children. Main thread only.
class KWProjectListNode {
public:
    KWProjectListNode(KWProjectListNodeType type, QString entityID, QString title);

    KWProjectListNodeType type() const { return m_type; }
    /// The id of the smart list, list, folder, filter, calendar or team, or the name of the tag; empty as
    /// long as it has no name.
    const QString &entityID() const { return m_entityID; }
    const QString &title() const { return m_title; }
    /// "#rrggbb" of a list, tag or calendar, empty for none.
    const QString &color() const { return m_color; }
    void setColor(const QString &color) { m_color = color; }

    /// Of an open list, see KWProject::iconName(); empty for other nodes.
    const QString &iconName() const { return m_iconName; }
    void setIconName(const QString &name) { m_iconName = name; }

    /// Of a list: it is open and may be written.
    bool takesTasks() const { return m_takesTasks; }
    void setTakesTasks(bool takesTasks) { m_takesTasks = takesTasks; }

    bool isExpanded() const { return m_isExpanded; }
    void setIsExpanded(bool isExpanded);
    bool isSelected() const { return m_isSelected; }
    void setIsSelected(bool isSelected);

    /// None while it is not known, and for nodes that have none. Another one is told to countChangedHandler.
    std::optional<int> count() const { return m_count; }
    void setCount(std::optional<int> count);

    KWProjectListNode *parent() const { return m_parent; }
    const std::vector<std::unique_ptr<KWProjectListNode>> &children() const { return m_children; }
    int row() const;
    void setChildren(std::vector<std::unique_ptr<KWProjectListNode>> children);
    /// Leaves none.
    std::vector<std::unique_ptr<KWProjectListNode>> takeChildren() { return std::exchange(m_children, {}); }
    KWProjectListNode &addChild(std::unique_ptr<KWProjectListNode> child);

    /// The list that selecting the node shows; nothing for nodes that show none.
    std::optional<KWListIdentifier> listIdentifier() const;

    // Set by the row that shows the node.
    std::function<void(int count, KWProjectListNode &)> countChangedHandler;
    std::function<bool(bool isExpanded, KWProjectListNode &)> expanedChangedHandler;
    std::function<void()> selectChangedHanlder;

private:
    KWProjectListNodeType m_type;
    QString m_entityID;
    QString m_title;
    QString m_color;
    QString m_iconName;
    std::optional<int> m_count;
    bool m_takesTasks = true;
    bool m_isExpanded = true;
    bool m_isSelected = false;
    KWProjectListNode *m_parent = nullptr;
    std::vector<std::unique_ptr<KWProjectListNode>> m_children;
};
