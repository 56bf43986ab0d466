#pragma once

#include "corvexkit/Result.h"
#include "model/store/UndoToken.h"

#include <functional>

class KWCoreDataManager;

/// Puts lists, folders, tags, filters and calendars elsewhere in the sidebar, each in one save that can be
/// taken back. `beforeID` is what it stands before then, of a tag the name; behind the last when it is empty
/// or gone. Something that is gone, and a place that cannot be, fail with a sentence. Main thread.
class SidebarArranger {
public:
    SidebarArranger(KWCoreDataManager &manager, QString userID);

    /// Into the folder; into none when that is empty. A list of a team stays among the team's.
    Result<UndoToken> moveList(const QString &listID, const QString &groupID, const QString &beforeID = {});
    Result<UndoToken> moveFolder(const QString &groupID, const QString &beforeID = {});
    /// Below the tag `parent`; below none when that is empty. Tags are two deep at most.
    Result<UndoToken> moveTag(const QString &name, const QString &parent, const QString &beforeName = {});
    Result<UndoToken> moveFilter(const QString &filterID, const QString &beforeID = {});
    Result<UndoToken> moveCalendar(const QString &subscriptionID, const QString &beforeID = {});

private:
    Result<UndoToken> save(const std::function<Result<void>(ObjectContext &)> &move);

    KWCoreDataManager &m_manager;
    QString m_userID;
};
