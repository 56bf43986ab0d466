#pragma once

#include "lists/KWProjectListPresenter.h"
#include "lists/SidebarDrop.h"
#include "model/store/CalSubscriptionEditor.h"
#include "model/store/ListEditor.h"
#include "model/store/SidebarArranger.h"

/// What is done to the nodes of the sidebar by hand, each in one save: they are made, named, coloured,
/// archived, hidden and removed. Main thread.
class SidebarEditor {
public:
    /// All outlive it.
    struct Parts {
        KWProjectListPresenter &sidebar;
        KWCoreDataManager &manager;
        KWAccountManager &account;
        KWNotificationCenter &center;
    };
    explicit SidebarEditor(const Parts &parts) : m_parts(parts) {}

    /// What is said of it, and how it is taken back; nothing is said of what can be seen.
    struct Done {
        QString message{};
        UndoToken undo{};
    };

    /// Makes what the presenter is adding, under that name, and selects it, if it is a list of tasks. An
    /// empty name makes nothing. When it fails, it goes on being added.
    Result<Done> finishAdding(const QString &name);
    Result<Done> rename(const KWProjectListNode &node, const QString &name);
    /// "#rrggbb", empty for none.
    Result<Done> setColor(const KWProjectListNode &node, const QString &color);
    /// Closes an open list, opens a closed one.
    Result<Done> archive(const KWProjectListNode &list);
    Result<Done> setVisibility(KWSmartProjectVisibility visibility, const QString &smartListID);

    /// Whether events of that subscribed calendar are shown.
    Result<Done> setShowsInCalendar(bool shows, const KWProjectListNode &calendar);

    /// Empty for none.
    Result<Done> moveToFolder(const KWProjectListNode &list, const QString &groupID);
    /// `place` is what SidebarDrop::validateDrop() answers.
    Result<Done> acceptDrop(const KWProjectListNode &node, const SidebarDrop::Place &place);
    /// All but those that delete, which wait for a while.
    Result<Done> dropTasks(const QStringList &taskIDs, const KWProjectListNode &node);

    /// What is asked before the node is removed; nothing for what can be taken back.
    struct Question {
        QString title;
        QString text;
        QString confirmation; ///< what the button says that removes it
    };
    std::optional<Question> questionBeforeRemoving(const KWProjectListNode &node) const;
    /// `completion` is called at once, but for a list: that goes in the background.
    void remove(const KWProjectListNode &node, const std::function<void(const Result<Done> &)> &completion);

private:
    bool areInTrash(const QStringList &taskIDs) const;
    QString userID() const { return m_parts.account.currentUserID(); }
    ListEditor lists() const { return {m_parts.manager, userID()}; }
    CalSubscriptionEditor calendars() const { return {m_parts.manager, userID()}; }
    void selectAnotherThan(const KWProjectListNode &node);

    Parts m_parts;
};
