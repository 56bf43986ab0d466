#pragma once

#include "lists/KWProjectListPresenter.h"

#include <QMenu>

/// The menu of a node of the sidebar. Main thread.
class SidebarMenu : public QMenu {
    Q_OBJECT

public:
    SidebarMenu(const KWProjectListNode &node, KWProjectListPresenter &presenter, QWidget *parent = nullptr);

Q_SIGNALS:
    void commanded(ProjectListCommand command);
    /// "#rrggbb", empty for none.
    void colorChosen(const QString &color);
    /// Empty for none.
    void folderChosen(const QString &groupID);

private:
    void add(ProjectListCommand command, const KWProjectListNode &node);
    void addColors(const QString &chosen);
    void addFolders(const KWProjectListNode &node);

    KWProjectListPresenter &m_presenter;
};
