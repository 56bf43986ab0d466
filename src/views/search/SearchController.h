#pragma once

#include "model/events/KWEventBus.h"
#include "model/events/KWNotificationCenter.h"
#include "views/palette/TaskHits.h"
#include "views/search/SearchPage.h"

class TaskListPane;

/// Shows the search page in place of the list until the keyboard goes to the list or its add field, and keeps
/// its hits true. Main thread.
class SearchController : public QObject {
    Q_OBJECT

public:
    /// All outlive it.
    SearchController(TaskListPane &pane, const TaskHits &hits, KWNotificationCenter &center, KWEventBus &bus);

    /// The page with this text, which is selected, so that typing replaces it.
    void open(const QString &text);
    void close();
    bool isShown() const { return m_page->isVisible(); }
    SearchPage &page() { return *m_page; }

Q_SIGNALS:
    void closed();

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    void search(FoundRowsView::InItsPlace other);
    void refresh();

    TaskListPane &m_pane;
    const TaskHits &m_hits;
    SearchPage *m_page;
    KWNotificationCenter::Observation m_deletes;
    KWEventBus::Registration m_registration;
};
