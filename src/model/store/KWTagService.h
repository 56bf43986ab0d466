#pragma once

#include "corvexkit/Result.h"
#include "model/store/UndoToken.h"
#include "model/text/KWTagEntity.h"

#include <QList>
#include <QString>

class KWCoreDataManager;
class ObjectContext;

/// Makes, renames and deletes tags, each with everything that names them in one save: tasks, child tags,
/// manual positions, the way their lists are shown, and in renaming the rules of filters. Tags are named by
/// their key or any spelling of it. A tag that is gone, a name that cannot be one and a parent that cannot be
/// one fail with a sentence. Main thread.
class KWTagService {
public:
    KWTagService(KWCoreDataManager &manager, QString userID);

    /// The label that was typed, on one line; an error where no tag can have it.
    static Result<QString> checkedLabel(const QString &typed);
    /// The tags in a text that is being typed, in text order: also one that is not finished yet at its end.
    /// Any thread.
    static QList<KWTagEntity> possibleEntitiesInText(QStringView text);

    struct NewTag {
        QString label;
        QString color{};  ///< "#rrggbb", empty for none
        QString parent{}; ///< name of a tag that has no parent itself; empty for none
    };
    /// Answers the name. A tag of that name that there is already is an error.
    Result<QString> create(const NewTag &tag);
    struct Renamed {
        QString name; ///< the new one
        bool isJoined = false;
        UndoToken undo{};
    };
    /// When the user has another tag of that name the two are joined: tasks and child tags go to the other,
    /// and this one is deleted.
    Result<Renamed> rename(const QString &name, const QString &newLabel);
    /// Takes it from all tasks; its child tags stay, without a parent.
    Result<UndoToken> remove(const QString &name);
    /// An empty parent takes the tag out of its parent. Tags are two deep at most.
    Result<void> setParent(const QString &name, const QString &parent);
    /// The same inside a save that somebody else makes.
    static Result<void> setParent(const QString &name, const QString &parent, const QString &userID,
                                  ObjectContext &context);
    Result<UndoToken> setColor(const QString &name, const QString &color);

private:
    KWCoreDataManager &m_manager;
    QString m_userID;
};
