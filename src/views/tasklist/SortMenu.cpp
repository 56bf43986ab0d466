#include "views/tasklist/SortMenu.h"

#include "views/controls/MenuPlace.h"
#include "views/tasklist/PageHeader.h"

#include <QMenu>

using namespace Qt::StringLiterals;

SortMenu::SortMenu(PageHeader &header, KWTaskListService &service, KWCoreDataManager &manager)
    : m_header(header), m_service(service), m_manager(manager)
{
    connect(&m_header, &PageHeader::sortMenuRequested, this, &SortMenu::open);
}

void SortMenu::show()
{
    m_header.setSorting(m_service.isSortable() ? KWTaskSortTypeMenu::titleOf(m_service.sortType())
                                               : QString{});
}

void SortMenu::popup(const KWTaskSortTypeMenu &menu, const QRect &relativeTo, QWidget &in,
                     Qt::Edge preferredEdge, const SelectHandler &selectHandler,
                     const ResumeHandler &resumeHandler)
{
    auto *shown = new QMenu{&in};
    shown->setObjectName(u"sortMenu"_s);
    for (const KWTaskSortType each : menu.sortTypes()) {
        QAction *action = shown->addAction(KWTaskSortTypeMenu::titleOf(each), &in,
                                           [each, selectHandler] { selectHandler(each); });
        action->setCheckable(true);
        action->setChecked(each == menu.selectedType);
    }
    if (const auto reset = menu.resetTitle()) {
        shown->addSeparator();
        shown->addAction(*reset, &in, resumeHandler);
    }
    popUpAt(relativeTo, in, preferredEdge, *shown);
}

void SortMenu::open()
{
    QWidget &button = m_header.sortButton();
    popup(
        m_service.sortMenu(), button.rect(), button, Qt::BottomEdge,
        [this](KWTaskSortType sortType) { report(m_service.setSortType(sortType)); },
        [this] { resetManualOrder(); });
}

void SortMenu::resetManualOrder()
{
    const Result<UndoToken> reset = m_service.resetManualOrder();
    if (!reset) return Q_EMIT failed(reset.error().sentence);
    Q_EMIT changed(tr("Order reset"), [this, reset] { report(reset->undo(m_manager)); });
}

void SortMenu::report(const Result<void> &done)
{
    if (!done) Q_EMIT failed(done.error().sentence);
}
