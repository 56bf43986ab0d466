#pragma once

#include "lists/SidebarEditor.h"

#include <QObject>
#include <QPointer>

class KWDelayDeleteManager;
class KWProjectListView;
class QMenu;

/// What can be done to the rows of the sidebar, by hand, by key and by menu. Main thread.
class SidebarCommands : public QObject {
    Q_OBJECT

public:
    /// All outlive it.
    struct Parts {
        KWProjectListView &tree;
        SidebarEditor::Parts rooms;
        KWDelayDeleteManager &deletes;
    };
    explicit SidebarCommands(const Parts &parts);

    /// Lets a new list be named: in the folder of the selected list, else in none.
    void addList();

Q_SIGNALS:
    /// Something was done; `undo` takes it back.
    void changed(const QString &message, const std::function<void()> &undo);
    void failed(const QString &sentence);
    /// Empty for a new one.
    void filterEditRequested(const QString &filterID);
    /// One is to be subscribed to.
    void calendarRequested();
    void calendarReadingRequested(const QString &subscriptionID);

private:
    void add(KWProjectListNodeType type, QString parentID, KWProjectKind kind = KWProjectKindTask);
    void addTo(const KWProjectListNode &parent);
    void finishNaming(const KWProjectListNode &node, const QString &name);
    void showMenu(const KWProjectListNode &node, const QPoint &position);
    void perform(ProjectListCommand command, KWProjectListNodeType type, const QString &entityID);
    void hide(const KWProjectListNode &smartList);
    void remove(const KWProjectListNode &node);
    void move(const KWProjectListNode &node, int step);
    void dropTasks(const QStringList &taskIDs, const KWProjectListNode &node);
    void report(const Result<SidebarEditor::Done> &done);
    KWProjectListNode *node(KWProjectListNodeType type, const QString &entityID) const;

    KWProjectListView &m_tree;
    KWProjectListPresenter &m_presenter;
    KWCoreDataManager &m_manager;
    KWDelayDeleteManager &m_deletes;
    SidebarEditor m_editor;
    QPointer<QMenu> m_menu;
};
