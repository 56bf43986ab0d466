#include "model/store/ListEditor.h"

#include "model/records/KWProject.h"
#include "model/records/KWProjectGroup.h"
#include "model/records/KWUserSettings.h"
#include "model/records/OneLine.h"
#include "model/store/FoldedName.h"
#include "model/store/KWCoreDataManager.h"
#include "model/store/ListRemoval.h"
#include "model/store/SidebarPlaces.h"
#include "model/store/StoreFailure.h"

#include <algorithm>

namespace {

Error noSuchList() { return {storeText("There is no such list any more.")}; }
Error noSuchFolder() { return {storeText("There is no such folder any more.")}; }

Result<void> mayChangeList(const KWProject *list)
{
    if (!list || list->isDeleted()) return noSuchList();
    if (list->isInbox()) return Error{storeText("The inbox stays as it is.")};
    return {};
}

Result<KWProjectGroup *> folderWithID(const QString &groupID, ObjectContext &context)
{
    KWProjectGroup *folder = context.find<KWProjectGroup>(groupID);
    if (!folder || folder->isDeleted()) return noSuchFolder();
    return folder;
}

} // namespace

ListEditor::ListEditor(KWCoreDataManager &manager, QString userID)
    : m_manager(manager), m_userID(std::move(userID))
{
}

Result<void> ListEditor::checkListName(const QString &name, const QString &ownID,
                                       ObjectContext &context) const
{
    if (name.isEmpty()) return Error{storeText("A list needs a name.")};
    const KWProject *taken = KWProject::findProjectNamed(name, m_userID, context);
    if (taken && taken->sid() != ownID) return Error{storeText("There is a list “%1” already.").arg(name)};
    return {};
}

Result<void> ListEditor::checkFolderName(const QString &name, const QString &ownID,
                                         ObjectContext &context) const
{
    if (name.isEmpty()) return Error{storeText("A folder needs a name.")};
    for (const KWProjectGroup *each : KWProjectGroup::findGroupsOfUser(m_userID, context))
        if (each->sid() != ownID && foldedName((*each)->name) == foldedName(name))
            return Error{storeText("There is a folder “%1” already.").arg(name)};
    return {};
}

Result<QString> ListEditor::createList(const NewList &list)
{
    QString listID;
    const auto create = [&](ObjectContext &context) -> Result<void> {
        const QString name = onOneLine(list.name);
        if (Result<void> checked = checkListName(name, {}, context); !checked) return checked;
        KWProject &made = KWProject::createProjectNamed(name, m_userID, context);
        if (!list.groupID.isEmpty()) {
            if (const auto folder = folderWithID(list.groupID, context); !folder) return folder.error();
            made.set(&KWProjectModel::groupID, list.groupID);
        }
        made.set(&KWProjectModel::color, list.color);
        made.set(&KWProjectModel::kind, list.kind);
        listID = made.sid();
        return {};
    };
    const Result<void> saved = KWCoreDataService{m_manager}.sync_save(create);
    if (!saved) return saved.error();
    return listID;
}

Result<QString> ListEditor::createFolder(const QString &typed)
{
    QString groupID;
    const auto create = [&](ObjectContext &context) -> Result<void> {
        KWProjectGroupModel folder;
        folder.userID = m_userID;
        folder.name = onOneLine(typed);
        const Result<void> checked = checkFolderName(folder.name, {}, context);
        if (!checked) return checked;
        folder.sortOrder = KWProject::sortOrderBehindListsAndFolders(m_userID, context);
        groupID = context.insert<KWProjectGroup>(std::move(folder)).sid();
        return {};
    };
    const Result<void> saved = KWCoreDataService{m_manager}.sync_save(create);
    if (!saved) return saved.error();
    return groupID;
}

Result<UndoToken> ListEditor::editList(const QString &listID,
                                       const std::function<Result<void>(KWProject &)> &edit)
{
    UndoToken undo;
    const auto change = [&](ObjectContext &context) {
        KWProject *list = context.find<KWProject>(listID);
        Result<void> done = mayChangeList(list);
        if (done) done = edit(*list);
        if (done) undo = UndoToken::of(context);
        return done;
    };
    const Result<void> saved = KWCoreDataService{m_manager}.sync_save(change);
    if (!saved) return saved.error();
    return undo;
}

Result<UndoToken> ListEditor::editFolder(const QString &groupID,
                                         const std::function<Result<void>(KWProjectGroup &)> &edit)
{
    UndoToken undo;
    const auto change = [&](ObjectContext &context) -> Result<void> {
        const Result<KWProjectGroup *> folder = folderWithID(groupID, context);
        if (!folder) return folder.error();
        const Result<void> done = edit(**folder);
        if (done) undo = UndoToken::of(context);
        return done;
    };
    const Result<void> saved = KWCoreDataService{m_manager}.sync_save(change);
    if (!saved) return saved.error();
    return undo;
}

Result<UndoToken> ListEditor::renameList(const QString &listID, const QString &typed)
{
    return editList(listID, [&](KWProject &list) -> Result<void> {
        const QString name = onOneLine(typed);
        if (!list.isWritable()) return Error{storeText("The list “%1” may only be read.").arg(list->name)};
        const Result<void> checked = checkListName(name, listID, list.context());
        if (checked) list.set(&KWProjectModel::name, name);
        return checked;
    });
}

Result<UndoToken> ListEditor::renameFolder(const QString &groupID, const QString &typed)
{
    return editFolder(groupID, [&](KWProjectGroup &folder) {
        const QString name = onOneLine(typed);
        const Result<void> checked = checkFolderName(name, groupID, folder.context());
        if (checked) folder.set(&KWProjectGroupModel::name, name);
        return checked;
    });
}

Result<UndoToken> ListEditor::setColor(const QString &listID, const QString &color)
{
    return editList(listID, [&color](KWProject &list) -> Result<void> {
        list.set(&KWProjectModel::color, color);
        return {};
    });
}

Result<UndoToken> ListEditor::setClosed(const QString &listID, bool isClosed)
{
    return editList(listID, [&](KWProject &list) -> Result<void> {
        Result<void> checked;
        if (!isClosed) checked = checkListName(list->name, listID, list.context());
        if (checked) list.set(&KWProjectModel::closed, isClosed);
        return checked;
    });
}

Result<UndoToken> ListEditor::deleteFolder(const QString &groupID)
{
    return editFolder(groupID, [&](KWProjectGroup &folder) -> Result<void> {
        ObjectContext &context = folder.context();
        const SidebarPlaces members = placesInFolder(groupID, m_userID, context);
        placeBefore(groupID, members, placesAtTopLevel(m_userID, context));
        for (KWProject *each : KWProject::findProjectsOfUser(m_userID, ProjectScope::OpenAndClosed, context))
            if ((*each)->groupID == groupID) each->set(&KWProjectModel::groupID, KWProjectGroupIDUngrouped);
        folder.markDelete();
        return {};
    });
}

void ListEditor::deleteList(const QString &listID, std::function<void(const Result<void> &)> completion)
{
    const auto remove = [listID, userID = m_userID](ObjectContext &context) -> Result<void> {
        KWProject *list = context.find<KWProject>(listID);
        if (Result<void> allowed = mayChangeList(list); !allowed) return allowed;
        KWUserSettings *settings = context.find<KWUserSettings>(userID);
        if (settings && (*settings)->defaultListID == listID)
            settings->set(&KWUserSettingsModel::defaultListID, QString{});
        removeWithContents(*list);
        return {};
    };
    KWCoreDataService{m_manager}.async_save(remove, std::move(completion));
}
