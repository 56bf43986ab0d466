#pragma once

#include "lists/KWProjectListPresenter.h"

#include <QObject>

class SidebarView;

/// Joins the sidebar with its presenter. Main thread.
class SidebarController : public QObject {
    Q_OBJECT

public:
    SidebarController(SidebarView &view, KWProjectListPresenter &presenter, KWAccountManager &account);
    ~SidebarController() override;

Q_SIGNALS:
    void listSelected(const KWListIdentifier &list);
    /// The same list is selected; it, or others, may have another name, colour or place.
    void contentsChanged();
    /// Enter on a list: go on to its tasks.
    void listOpened();

private:
    void showTree();
    void showSelection();

    SidebarView &m_view;
    KWProjectListPresenter &m_presenter;
    KWAccountManager &m_account;
};
