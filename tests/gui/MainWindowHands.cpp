#include "gui/MainWindowHands.h"

#include "model/records/KWSmartProject.h"
#include "support/Answers.h"
#include "views/main/MainWindow.h"
#include "views/sidebar/SidebarView.h"
#include "views/tasklist/TaskMimeData.h"

#include <QAbstractButton>
#include <QApplication>
#include <QContextMenuEvent>
#include <QDropEvent>
#include <QLineEdit>
#include <QMenu>
#include <QMimeData>
#include <QTest>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

void choose(const QMenu &menu, const QString &entry)
{
    QList<QAction *> actions = menu.actions();
    for (const QAction *each : menu.actions())
        if (each->menu()) actions += each->menu()->actions();
    const auto found = std::ranges::find(actions, entry, &QAction::text);
    if (found == actions.end()) qFatal("the menu has no %s", qUtf8Printable(entry));
    (*found)->trigger();
}

// The last one opened below `owner`.
QMenu &openMenu(QWidget &owner, const QString &name)
{
    const QList<QMenu *> menus = owner.findChildren<QMenu *>(name);
    if (menus.isEmpty()) qFatal("no menu %s opened", qUtf8Printable(name));
    return *menus.last();
}

void pressMenuKey(QWidget &widget)
{
    QContextMenuEvent event{QContextMenuEvent::Keyboard, {}, {}};
    QApplication::sendEvent(&widget, &event);
}

bool dropAt(QWidget &viewport, const QMimeData &data, const QRect &row, double share)
{
    const QPoint place{row.center().x(), row.top() + int(row.height() * share)};
    QDragEnterEvent enter{place, Qt::MoveAction, &data, Qt::LeftButton, {}};
    QApplication::sendEvent(&viewport, &enter);
    QDragMoveEvent move{place, Qt::MoveAction, &data, Qt::LeftButton, {}};
    QApplication::sendEvent(&viewport, &move);
    QDropEvent end{QPointF{place}, Qt::MoveAction, &data, Qt::LeftButton, {}};
    QApplication::sendEvent(&viewport, &end);
    return move.isAccepted() && end.isAccepted();
}

} // namespace

void MainWindowHands::startClient(const char *localTime)
{
    m_client = std::make_unique<ClientFixture>(localTime);
    m_client->useOnThisComputer();
}

TaskListPane &MainWindowHands::pane() const { return m_client->window()->listPane(); }

TaskListView &MainWindowHands::list() const { return pane().list(); }

QString MainWindowHands::shown() const
{
    return joined(pane().model().rows(), [](const TaskListRow &row) {
        if (row.kind == TaskListRow::Kind::Section) return u'[' + row.title + u']';
        return QString(row.depth, u'.') + row.task.title;
    });
}

QString MainWindowHands::idOf(const QString &title) const
{
    for (const TaskListRow &each : pane().model().rows())
        if (each.kind == TaskListRow::Kind::Task && each.task.title == title) return each.id;
    qFatal("there is no row %s", qUtf8Printable(title));
}

QStringList MainWindowHands::idsOf(const QStringList &titles) const
{
    QStringList ids;
    for (const QString &each : titles)
        ids.append(idOf(each));
    return ids;
}

QModelIndex MainWindowHands::taskRow(const QString &title) const
{
    return pane().model().indexOf(idOf(title));
}

QModelIndex MainWindowHands::sectionRow(const QString &title) const
{
    for (int i = 0; i < pane().model().rowCount(); ++i)
        if (pane().model().rows().at(i).title == title) return pane().model().index(i);
    qFatal("there is no section %s", qUtf8Printable(title));
}

void MainWindowHands::goTo(const QModelIndex &row) const
{
    activate();
    list().setFocus();
    list().selectionModel()->setCurrentIndex(row, QItemSelectionModel::ClearAndSelect);
}

void MainWindowHands::chooseInMenu(const QString &entry) const
{
    pressMenuKey(list());
    QMenu &menu = openMenu(list(), u"taskMenu"_s);
    menu.close();
    choose(menu, entry);
}

QMenu &MainWindowHands::openSortMenu() const
{
    QTest::mouseClick(&m_client->find<QAbstractButton>("sortButton"), Qt::LeftButton);
    return openMenu(*m_client->window(), u"sortMenu"_s);
}

void MainWindowHands::chooseOfPage(const QString &entry) const
{
    QTest::mouseClick(&m_client->find<QAbstractButton>("pageMenuButton"), Qt::LeftButton);
    QMenu &menu = openMenu(*m_client->window(), u"pageMenu"_s);
    menu.close();
    choose(menu, entry);
}

void MainWindowHands::sortBy(const QString &title) const
{
    QMenu &menu = openSortMenu();
    menu.close();
    choose(menu, title);
}

void MainWindowHands::drop(const QStringList &titles, const QModelIndex &onto, double share) const
{
    const std::unique_ptr<QMimeData> data{TaskMimeData::make(idsOf(titles), titles)};
    dropAt(*list().viewport(), *data, list().visualRect(onto), share);
}

KWProjectListView &MainWindowHands::tree() const { return m_client->window()->sidebar().tree(); }

QModelIndex MainWindowHands::listRow(const QString &title) const
{
    return treeModel()
        .match(treeModel().index(0, 0), Qt::DisplayRole, title, 1, Qt::MatchExactly | Qt::MatchRecursive)
        .value(0);
}

QModelIndex MainWindowHands::listSection(const KWSmartProject &smart) const
{
    return treeModel().find(KWProjectListNodeType::smartProject, smart.identifier());
}

QString MainWindowHands::rowsBelow(const QModelIndex &parent) const
{
    QStringList titles;
    for (int row = 0; row < treeModel().rowCount(parent); ++row) {
        const QModelIndex index = treeModel().index(row, 0, parent);
        const QString inner = rowsBelow(index);
        titles << index.data().toString() + (inner.isEmpty() ? QString{} : u'(' + inner + u')');
    }
    return titles.join(u' ');
}

void MainWindowHands::goToList(const QModelIndex &row) const
{
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete); // an editor that has closed
    activate();
    tree().setFocus();
    tree().selectionModel()->setCurrentIndex(row, QItemSelectionModel::NoUpdate);
}

void MainWindowHands::chooseInSidebar(const QModelIndex &row, const QString &entry) const
{
    goToList(row);
    pressMenuKey(*tree().viewport());
    QMenu &menu = openMenu(tree(), u"sidebarMenu"_s);
    choose(menu, entry);
    delete &menu;
}

void MainWindowHands::typeName(const QString &name) const
{
    auto *editor = tree().findChild<QLineEdit *>(u"nameEditor"_s);
    if (!editor || !editor->hasFocus()) qFatal("no name can be typed: %s", qUtf8Printable(name));
    editor->selectAll();
    QTest::keyClicks(editor, name);
    QTest::keyClick(editor, Qt::Key_Return);
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
}

void MainWindowHands::addTo(const KWSmartProject &section, const QString &name) const
{
    goToList(listSection(section));
    m_client->press(Qt::Key_Insert);
    typeName(name);
}

bool MainWindowHands::dropOnList(QMimeData *carried, const QModelIndex &row, double share) const
{
    const std::unique_ptr<QMimeData> data{carried};
    tree().scrollTo(row);
    return dropAt(*tree().viewport(), *data, tree().visualRect(row), share);
}

void MainWindowHands::activate() const
{
    m_client->window()->activateWindow();
    if (!QTest::qWaitForWindowActive(m_client->window())) qFatal("the main window is not active");
}

void MainWindowHands::undo() const { m_client->press(Qt::Key_Z, Qt::ControlModifier); }
