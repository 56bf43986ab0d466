#include "views/tasklist/ShownRows.h"

#include "capture/NewTaskContextOfList.h"
#include "views/tasklist/TaskListPane.h"
#include "views/tasklist/TaskListView.h"

ShownRows::ShownRows(TaskListPane &pane, KWTaskListService &service, const CXClock &clock)
    : m_pane(pane), m_service(service), m_clock(clock)
{
    connect(&m_pane.list(), &TaskListView::foldToggled, this, &ShownRows::fold);
    connect(&m_pane.list(), &TaskListView::moreRequested, this, [this] { m_service.loadMore(); });
}

void ShownRows::show()
{
    QList<SectionLook> looks;
    for (const KWTaskCategory &each : m_service.categories())
        looks.append(sectionLookOf(each, m_clock.today(), m_takesTasks));
    m_pane.list().setRows(flatRows(m_service.categories(), m_service.folded()), std::move(looks));
}

void ShownRows::setTakesTasks(bool takesTasks)
{
    if (std::exchange(m_takesTasks, takesTasks) != takesTasks) show();
}

void ShownRows::fold(const TaskListRow &row)
{
    if (row.kind == TaskListRow::Kind::Task) return m_service.setTaskFolded(row.id, !row.isFolded);
    const auto &sections = m_service.categories();
    if (row.category < sections.size())
        m_service.setSectionFolded(sections.at(row.category).name(), !row.isFolded);
}
