#include "views/tasklist/PageMenu.h"

#include "lists/KWTaskListService.h"
#include "views/controls/MenuPlace.h"
#include "views/menu/MainMenu.h"
#include "views/tasklist/PageHeader.h"

#include <QMenu>

using namespace Qt::StringLiterals;

PageMenu::PageMenu(PageHeader &header, KWTaskListService &service, MainMenu &mainMenu)
    : m_header(header), m_service(service), m_mainMenu(mainMenu)
{
    connect(&m_header, &PageHeader::menuRequested, this, &PageMenu::open);
}

void PageMenu::open()
{
    QWidget &button = m_header.menuButton();
    auto *menu = new QMenu{&button};
    menu->setObjectName(u"pageMenu"_s);
    if (m_service.isSortable()) {
        QAction *completed = menu->addAction(tr("Show Completed"));
        completed->setCheckable(true);
        completed->setChecked(m_service.showsCompleted());
        connect(completed, &QAction::triggered, this,
                [this](bool showsCompleted) { report(m_service.setShowsCompleted(showsCompleted)); });
        if (m_service.shown().mayShowEvents()) {
            QAction *events = menu->addAction(tr("Show Events"));
            events->setCheckable(true);
            events->setChecked(m_service.showsEvents());
            connect(events, &QAction::triggered, this,
                    [this](bool showsEvents) { report(m_service.setShowsEvents(showsEvents)); });
        }
        menu->addSeparator();
    }
    for (const MenuCommand each : {MenuCommand::Print, MenuCommand::ExportList})
        menu->addAction(&m_mainMenu.action(each));
    popUpAt(button.rect(), button, Qt::BottomEdge, *menu);
}

void PageMenu::report(const Result<void> &done)
{
    if (!done) Q_EMIT failed(done.error().sentence);
}
