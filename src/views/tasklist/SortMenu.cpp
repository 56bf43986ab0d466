#include "views/tasklist/SortMenu.h"

#include "views/tasklist/PageHeader.h"

#include <QMenu>

using namespace Qt::StringLiterals;

SortMenu::SortMenu(PageHeader &header, KWTaskListService &service, KWCoreDataManager &manager)
    : m_header(header), m_service(service), m_manager(manager)
{
    connect(&m_header, &PageHeader::sortMenuRequested, this, [this] { popup(m_header.sortButton()); });
}

void SortMenu::show()
{
    m_header.setSorting(m_service.isSortable() ? KWTaskSortTypeMenu::titleOf(m_service.sortType())
                                               : QString{});
}

void SortMenu::popup(const QWidget &relativeTo)
{
    auto *menu = new QMenu{&m_header};
    menu->setObjectName(u"sortMenu"_s);
    menu->setAttribute(Qt::WA_DeleteOnClose);
    addSortTypes(*menu);
    menu->addSeparator();
    addCompleted(*menu);
    const bool isMirrored = relativeTo.layoutDirection() == Qt::RightToLeft;
    const int x = isMirrored ? 0 : relativeTo.width() - menu->sizeHint().width();
    menu->popup(relativeTo.mapToGlobal(QPoint{x, relativeTo.height() + 2}));
}

void SortMenu::addSortTypes(QMenu &menu)
{
    const auto selectHandler = [this](KWTaskSortType sortType) { report(m_service.setSortType(sortType)); };
    const auto resumeHandler = [this] { resetManualOrder(); };
    const KWTaskSortTypeMenu offered = m_service.sortMenu();
    for (const KWTaskSortType each : offered.sortTypes()) {
        QAction *action = menu.addAction(KWTaskSortTypeMenu::titleOf(each), this,
                                         [each, selectHandler] { selectHandler(each); });
        action->setCheckable(true);
        action->setChecked(each == offered.selectedType);
    }
    if (const auto reset = offered.resetTitle()) {
        menu.addSeparator();
        menu.addAction(*reset, this, resumeHandler);
    }
}

void SortMenu::resetManualOrder()
{
    const Result<UndoToken> reset = m_service.resetManualOrder();
    if (!reset) return Q_EMIT failed(reset.error().sentence);
    Q_EMIT changed(tr("Order reset"), [this, reset] { report(reset->undo(m_manager)); });
}

void SortMenu::addCompleted(QMenu &menu)
{
    QAction *action = menu.addAction(tr("Show Completed"));
    action->setCheckable(true);
    action->setChecked(m_service.showsCompleted());
    connect(action, &QAction::triggered, this,
            [this](bool shows) { report(m_service.setShowsCompleted(shows)); });
}

void SortMenu::report(const Result<void> &done)
{
    if (!done) Q_EMIT failed(done.error().sentence);
}
