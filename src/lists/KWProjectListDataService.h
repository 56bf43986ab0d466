#pragma once

#include "lists/KWProjectListNode.h"
#include "model/records/KWProjectGroupModel.h"
#include "model/records/KWProjectModel.h"
#include "model/records/KWTagModel.h"

#include <QList>
#include <QSet>

class ObjectContext;

/// What the sidebar is made from, in display order. A value: it may cross threads.
struct ProjectListContents {
    QString userID;
    QList<KWProjectModel> projects; ///< open ones, the inbox first
    QList<KWProjectGroupModel> groups;
    QList<KWTagModel> tags;
    QSet<QString> hiddenSmartLists; ///< identifiers of those that are not shown now
    QSet<QString> hiddenIfEmpty;    ///< of those that come and go with their tasks

    static ProjectListContents read(const QString &userID, ObjectContext &context);
    bool operator==(const ProjectListContents &) const = default;
};

/// Builds the sidebar tree. The section nodes are made once; a rebuild replaces their children.
/// Main thread.
class KWProjectListDataService {
public:
    KWProjectListDataService();

    KWProjectListNode &rootNode() { return m_rootNode; }
    KWProjectListNode &topNode() { return *m_topNode; }
    KWProjectListNode &centerNode() { return *m_centerNode; }
    KWProjectListNode &bottomNode() { return *m_bottomNode; }
    KWProjectListNode &listNode() { return *m_listNode; }
    KWProjectListNode &tagNode() { return *m_tagNode; }
    KWProjectListNode &filterNode() { return *m_filterNode; }
    KWProjectListNode &subCalNode() { return *m_subCalNode; }

    /// `isFolded` tells which sections and folders the user has folded.
    void rebuild(const ProjectListContents &contents,
                 const std::function<bool(const KWProjectListNode &)> &isFolded);
    void clear();

    /// The node that shows the list, or none.
    KWProjectListNode *nodeFor(const KWListIdentifier &list);
    /// Every list that a node of the tree shows.
    QList<KWListIdentifier> lists() const;

private:
    KWProjectListNode m_rootNode;
    KWProjectListNode *m_topNode;
    KWProjectListNode *m_centerNode;
    KWProjectListNode *m_bottomNode;
    KWProjectListNode *m_listNode;
    KWProjectListNode *m_tagNode;
    KWProjectListNode *m_filterNode;
    KWProjectListNode *m_subCalNode;
};
