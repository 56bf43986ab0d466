#include "views/search/SearchController.h"

#include "views/addfield/KWNewTaskTextField.h"
#include "views/tasklist/TaskListPane.h"
#include "views/tasklist/TaskListView.h"

#include <QEvent>

namespace {

constexpr int mostHits = 200;

} // namespace

SearchController::SearchController(TaskListPane &pane, const TaskHits &hits, KWEventBus &bus)
    : m_pane(pane)
    , m_hits(hits)
    , m_page(new SearchPage{pane})
    , m_registration(bus.registerEventBus([this](const StoreChange &change) {
        const bool mayChangeHits = change.touches(RecordKind::Task) || change.touches(RecordKind::Project);
        if (isShown() && mayChangeHits) search();
    }))
{
    connect(m_page, &SearchPage::typed, this, &SearchController::search);
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
    search();
    m_page->setFocus(Qt::OtherFocusReason);
}

bool SearchController::eventFilter(QObject *watched, QEvent *event)
{
    if (event->type() == QEvent::FocusIn) close();
    return QObject::eventFilter(watched, event);
}

void SearchController::search() { m_page->setHits(m_hits.find(m_page->text(), mostHits)); }
