#include "gui/ClientFixture.h"

#include "views/main/MainWindow.h"
#include "views/sidebar/KWProjectListView.h"
#include "views/sidebar/SidebarView.h"
#include "views/tasklist/TaskListPane.h"
#include "views/theme/ThemeConfigurator.h"
#include "views/welcome/WelcomeWindow.h"

#include <QAbstractButton>
#include <QApplication>
#include <QTest>

using namespace Qt::StringLiterals;

ClientFixture::ClientFixture(const char *localTime, const char *zone) : clock(localTime, zone)
{
    static const bool isDressed = [] {
        ThemeConfigurator::shared().setMode(ThemeConfigurator::Mode::Light);
        ThemeConfigurator::shared().apply();
        return true;
    }();
    Q_UNUSED(isDressed)
    start({}, {});
}

ClientFixture::~ClientFixture() = default;

void ClientFixture::start(const DesktopServices &services, const LaunchRequest &launch)
{
    OrvaneKit::Opening opening = OrvaneKit::open(DataFolders::locate(m_folder.path()), clock);
    if (!opening.kit) qFatal("The store cannot be opened: %s", qUtf8Printable(opening.sentence));
    m_kit = std::move(opening.kit);
    m_rooms = std::make_unique<DesktopRooms>(*m_kit, clock, services);
    m_rooms->application().handleFinishLaunching(launch);
    resizeWindow();
}

// Larger than the screen of the offscreen platform.
void ClientFixture::resizeWindow()
{
    if (window()) window()->resize(1280, 800);
}

void ClientFixture::restart(const DesktopServices &services, const LaunchRequest &launch)
{
    m_rooms.reset();
    m_kit.reset();
    start(services, launch);
}

MainWindow *ClientFixture::window() { return m_rooms->mainWindow().window(); }

QWidget *ClientFixture::findWidget(const char *objectName)
{
    QWidget *found = window() ? window()->findChild<QWidget *>(QString::fromLatin1(objectName)) : nullptr;
    if (!found) qFatal("there is no widget %s", objectName);
    return found;
}

void ClientFixture::useOnThisComputer()
{
    WelcomeWindow *welcome = m_rooms->welcomeWindow().window();
    auto *button = welcome ? welcome->findChild<QAbstractButton *>(u"useOnThisComputer"_s) : nullptr;
    if (!button) qFatal("there is no button useOnThisComputer");
    QTest::mouseClick(button, Qt::LeftButton);
    if (!window()) qFatal("signing in opened no window");
    resizeWindow();
    window()->activateWindow();
    if (!QTest::qWaitForWindowActive(window())) qFatal("the main window is not active");
}

void ClientFixture::type(const QString &text)
{
    QWidget *focus = QApplication::focusWidget();
    if (!focus) qFatal("nothing has the focus");
    QTest::keyClicks(focus, text);
}

void ClientFixture::press(Qt::Key key, Qt::KeyboardModifiers modifiers)
{
    QWidget *focus = QApplication::focusWidget();
    if (!focus) qFatal("nothing has the focus");
    QTest::keyClick(focus, key, modifiers);
}

void ClientFixture::openList(const QString &title)
{
    KWProjectListView &tree = window()->sidebar().tree();
    const QModelIndexList found = tree.model()->match(tree.model()->index(0, 0), Qt::DisplayRole, title, 1,
                                                      Qt::MatchExactly | Qt::MatchRecursive);
    if (found.isEmpty()) qFatal("there is no list %s", qUtf8Printable(title));
    tree.scrollTo(found.first());
    QTest::mouseClick(tree.viewport(), Qt::LeftButton, {}, tree.visualRect(found.first()).center());
}

QStringList ClientFixture::shownTitles()
{
    QStringList titles;
    for (const KWTaskListItemModel &task : window()->listPane().model().tasks())
        titles.append(task.title);
    return titles;
}
