#include "views/sidebar/SidebarMenu.h"

#include "model/settings/KWLocalizedString.h"
#include "views/sidebar/CalendarState.h"
#include "views/theme/ListColors.h"
#include "views/theme/Metrics.h"
#include "views/theme/Painting.h"

#include <QActionGroup>
#include <QPainter>

using namespace Qt::StringLiterals;

namespace {

const char *titleOf(ProjectListCommand command)
{
    switch (command) {
    case ProjectListCommand::NewList:
        return "New List";
    case ProjectListCommand::NewNoteList:
        return "New Note List";
    case ProjectListCommand::NewFolder:
        return "New Folder";
    case ProjectListCommand::NewTag:
        return "New Tag";
    case ProjectListCommand::NewFilter:
        return "New Filter…";
    case ProjectListCommand::NewCalendar:
        return "Subscribe to Calendar…";
    case ProjectListCommand::EditFilter:
        return "Edit…";
    case ProjectListCommand::Rename:
        return "Rename";
    case ProjectListCommand::Color:
        return "Color";
    case ProjectListCommand::MoveToFolder:
        return "Move to Folder";
    case ProjectListCommand::Archive:
        return "Archive";
    case ProjectListCommand::Reopen:
        return "Reopen";
    case ProjectListCommand::ReadAgain:
        return "Read Again";
    case ProjectListCommand::ShowInCalendar:
        return "Show in Calendar";
    case ProjectListCommand::ShowOnlyIfNotEmpty:
        return "Show Only If Not Empty";
    case ProjectListCommand::Hide:
        return "Hide";
    case ProjectListCommand::Delete:
        return "Delete";
    case ProjectListCommand::ExitSharedList:
        return "Exit Shared List";
    }
    return "";
}

QIcon iconOf(const QString &color)
{
    const int side = Metrics::scaled(Metrics::icon);
    QPixmap pixmap{2 * side, 2 * side};
    pixmap.setDevicePixelRatio(2);
    pixmap.fill(Qt::transparent);
    QPainter painter{&pixmap};
    Painting::dot(painter, {side / 2.0, side / 2.0}, color);
    return QIcon{pixmap};
}

} // namespace

SidebarMenu::SidebarMenu(const KWProjectListNode &node, KWProjectListPresenter &presenter, QWidget *parent)
    : QMenu(parent), m_presenter(presenter)
{
    setObjectName(u"sidebarMenu"_s);
    if (const auto calendar = presenter.calendarOf(node))
        addAction(calendarState(*calendar, presenter.clock()))->setEnabled(false);
    for (const ProjectListCommand each : presenter.popMenu(node)) {
        const bool endsGroup = each == ProjectListCommand::Rename || each == ProjectListCommand::Delete ||
                               each == ProjectListCommand::ExitSharedList;
        if (endsGroup && !isEmpty()) addSeparator();
        if (each == ProjectListCommand::Color)
            addColors(node.color());
        else if (each == ProjectListCommand::MoveToFolder)
            addFolders(node);
        else
            add(each, node);
    }
}

void SidebarMenu::add(ProjectListCommand command, const KWProjectListNode &node)
{
    QAction *action = addAction(KWLocalizedString(titleOf(command)));
    if (command == ProjectListCommand::ShowOnlyIfNotEmpty) {
        action->setCheckable(true);
        action->setChecked(m_presenter.isShownIfNotEmpty(node));
    }
    if (command == ProjectListCommand::ShowInCalendar) {
        action->setCheckable(true);
        action->setChecked(m_presenter.isShownInCalendar(node));
    }
    connect(action, &QAction::triggered, this, [this, command] { Q_EMIT commanded(command); });
}

void SidebarMenu::addColors(const QString &chosen)
{
    QMenu *colors = addMenu(KWLocalizedString(titleOf(ProjectListCommand::Color)));
    for (const ListColor &each : listColors) {
        const QString value = QString::fromLatin1(each.value);
        QAction *action = colors->addAction(KWLocalizedString(each.name));
        if (value == chosen) {
            action->setCheckable(true);
            action->setChecked(true);
        } else {
            action->setIcon(iconOf(value));
        }
        connect(action, &QAction::triggered, this, [this, value] { Q_EMIT colorChosen(value); });
    }
}

void SidebarMenu::addFolders(const KWProjectListNode &node)
{
    const auto &contents = m_presenter.contents();
    if (!contents || contents->groups.isEmpty()) return;
    const auto list = m_presenter.listOf(node);
    QMenu *folders = addMenu(KWLocalizedString(titleOf(ProjectListCommand::MoveToFolder)));
    const auto offer = [&](const QString &title, const QString &groupID, bool isChosen) {
        QAction *action = folders->addAction(title);
        action->setCheckable(true);
        action->setChecked(isChosen);
        connect(action, &QAction::triggered, this, [this, groupID] { Q_EMIT folderChosen(groupID); });
    };
    bool isInOne = false;
    for (const KWProjectGroupModel &each : contents->groups)
        isInOne |= list && list->groupID == each.sid;
    offer(KWLocalizedString("No Folder"), {}, !isInOne);
    for (const KWProjectGroupModel &each : contents->groups)
        offer(each.name, each.sid, list && list->groupID == each.sid);
}
