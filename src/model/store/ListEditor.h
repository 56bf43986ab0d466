#pragma once

#include "corvexkit/Result.h"
#include "model/records/KWConstants.h"
#include "model/store/UndoToken.h"

#include <functional>

class KWCoreDataManager;
class KWProject;
class KWProjectGroup;

/// Makes, changes and deletes lists and folders, each in one save. Names are one line; an empty one, and one
/// that another open list or folder has (compared as typed names are, see foldedName()), are refused. So is
/// a change of what is gone, of the inbox, and of a list that may only be read. What answers a token can be
/// taken back. Main thread.
class ListEditor {
public:
    ListEditor(KWCoreDataManager &manager, QString userID);

    struct NewList {
        QString name;
        QString color{};   ///< "#rrggbb", empty for none
        QString groupID{}; ///< the folder; empty for none
        KWProjectKind kind = KWProjectKindTask;
    };
    /// Behind the last one; answers the id.
    Result<QString> createList(const NewList &list);
    Result<QString> createFolder(const QString &name);

    Result<UndoToken> renameList(const QString &listID, const QString &name);
    Result<UndoToken> renameFolder(const QString &groupID, const QString &name);
    Result<UndoToken> setColor(const QString &listID, const QString &color);
    /// An archived list is in no smart list, folder, tag or count, and takes no new tasks.
    Result<UndoToken> setClosed(const QString &listID, bool isClosed);

    /// The lists in the folder stand in its place then.
    Result<UndoToken> deleteFolder(const QString &groupID);
    /// For good, with all its tasks, those in the trash included, and all that is kept about it. New tasks
    /// go to the inbox when they went there. Of a list that somebody else shares only what is here is
    /// removed: the user leaves it. Done in the background, for a list may hold many tasks; then `completion`
    /// is called on the main thread, unless the manager goes first.
    void deleteList(const QString &listID, std::function<void(const Result<void> &)> completion);

private:
    Result<UndoToken> editList(const QString &listID, const std::function<Result<void>(KWProject &)> &edit);
    Result<UndoToken> editFolder(const QString &groupID,
                                 const std::function<Result<void>(KWProjectGroup &)> &edit);
    Result<void> checkListName(const QString &name, const QString &ownID, ObjectContext &context) const;
    Result<void> checkFolderName(const QString &name, const QString &ownID, ObjectContext &context) const;

    KWCoreDataManager &m_manager;
    QString m_userID;
};
