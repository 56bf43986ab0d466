#pragma once

#include <QWidget>

class AccountHeader;
class KWProjectListView;

/// The left column: the account above the tree of lists.
class SidebarView : public QWidget {
    Q_OBJECT

public:
    explicit SidebarView(QWidget *parent = nullptr);

    AccountHeader &header() { return *m_header; }
    KWProjectListView &tree() { return *m_tree; }

protected:
    void paintEvent(QPaintEvent *event) override;

private:
    AccountHeader *m_header;
    KWProjectListView *m_tree;
};
