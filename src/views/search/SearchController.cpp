#include "views/search/SearchController.h"

#include "model/events/NotificationNames.h"
#include "views/addfield/KWNewTaskTextField.h"
#include "views/tasklist/TaskListPane.h"
#include "views/tasklist/TaskListView.h"

#include <QEvent>

#include <algorithm>

namespace {

constexpr int mostHits = 200; // and whether there are more

} // namespace

SearchController::SearchController(TaskListPane &pane, const TaskHits &hits, KWNotificationCenter &center,
                                   KWEventBus &bus)
    : m_pane(pane)
    , m_hits(hits)
    , m_page(new SearchPage{pane})
    , m_deletes(center.addObserver(delayDeleteStatusChangedNotification,
                                   [this](const KWNotification &) { refresh(); }))
    , m_registration(bus.registerEventBus([this](const StoreChange &change) {
        if (change.touches(RecordKind::Task) || change.touches(RecordKind::Project)) refresh();
    }))
{
    connect(m_page, &SearchPage::typed, this, [this] { search(FoundRowsView::InItsPlace::First); });
    connect(m_page, &SearchPage::left, &m_pane.list(),
            [this] { m_pane.list().setFocus(Qt::OtherFocusReason); });
    m_pane.list().installEventFilter(this);
    m_pane.addField().installEventFilter(this);
}

void SearchController::open(const QString &text)
{
    // What is selected below would go on taking commands.
    m_pane.list().clearSelection();
    m_pane.list().setCurrentIndex({});
    m_page->show();
    m_page->raise();
    m_page->setText(text);
    search(FoundRowsView::InItsPlace::First);
    m_page->setFocus(Qt::OtherFocusReason);
    m_pane.setFocusProxy(&m_page->rows());
}

void SearchController::close()
{
    if (m_page->isHidden()) return;
    m_page->hide();
    m_pane.setFocusProxy(&m_pane.list());
    Q_EMIT closed();
}

bool SearchController::eventFilter(QObject *watched, QEvent *event)
{
    if (event->type() == QEvent::FocusIn) close();
    return QObject::eventFilter(watched, event);
}

void SearchController::search(FoundRowsView::InItsPlace other)
{
    QList<FoundRow> hits = m_hits.find(m_page->text(), mostHits + 1);
    m_page->setHasMore(hits.size() > mostHits);
    hits.resize(std::min<qsizetype>(hits.size(), mostHits));
    m_page->setHits(std::move(hits), other);
}

void SearchController::refresh()
{
    if (isShown()) search(FoundRowsView::InItsPlace::Neighbour);
}
