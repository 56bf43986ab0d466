#include "DesktopClient.h"

#include "DesktopRooms.h"
#include "FirstPaintReport.h"
#include "app/SingleInstance.h"
#include "cli/Commands.h"
#include "cli/DemoAccount.h"
#include "cli/RunSettings.h"
#include "corvexkit/log/RotatingFileSink.h"
#include "corvexkit/time/SystemClock.h"
#include "platform/DBusSingleInstance.h"
#include "platform/LogindSleepMonitor.h"
#include "platform/OutsideChangeWatcher.h"
#include "views/alerts/StoreProblemAlert.h"
#include "views/main/FirstPaint.h"
#include "views/main/MainWindow.h"
#include "views/pictures/PagePicture.h"
#include "views/tasklist/TaskListPane.h"
#include "views/tasklist/TaskListView.h"
#include "views/theme/ThemeConfigurator.h"
#include "views/welcome/WelcomeWindow.h"

#include <QApplication>
#include <QTextStream>

using namespace Qt::StringLiterals;

namespace {

int fail(const QString &sentence, ExitStatus status)
{
    QTextStream err{stderr};
    return int(failWith(sentence, status, err));
}

QString clientText(const char *text) { return QCoreApplication::translate("CommandLine", text); }

LaunchRequest launchRequestOf(const Invocation &invocation)
{
    return {.cause = invocation.isLoginItem ? LaunchCause::LoginItem : LaunchCause::Person,
            .links = invocation.arguments,
            .activationToken = qEnvironmentVariable("XDG_ACTIVATION_TOKEN")};
}

// The counts are on their way from the background, and what they bring is still to be laid out.
void finishWork(OrvaneKit &kit)
{
    QCoreApplication::processEvents();
    kit.manager().threadPool().waitForDone();
    QCoreApplication::processEvents();
}

} // namespace

DesktopClient::DesktopClient(Invocation invocation) : m_invocation(std::move(invocation))
{
    if (m_invocation.isDemo && m_invocation.home.isEmpty()) m_throwAway.emplace();
    m_folders = DataFolders::locate(m_throwAway ? m_throwAway->path() : m_invocation.home);
}

int DesktopClient::run(int &argc, char **argv)
{
    const bool isPicture = m_invocation.action == Invocation::Action::Picture;
    if (isPicture) {
        qputenv("QT_QPA_PLATFORM", "offscreen");
        if (!m_invocation.scale.isEmpty()) qputenv("QT_SCALE_FACTOR", m_invocation.scale.toUtf8());
    }
    QApplication application{argc, argv};
    QApplication::setDesktopFileName(u"org.orvane.Orvane"_s);

    const Result<std::optional<CXTimeZone>> zone = zoneOf(m_invocation);
    if (!zone) return fail(zone.error().sentence, ExitStatus::WrongUsage);
    if (const Result<void> locale = applyLocale(m_invocation); !locale)
        return fail(locale.error().sentence, ExitStatus::WrongUsage);
    if (const Result<void> theme = applyTheme(); !theme)
        return fail(theme.error().sentence, ExitStatus::WrongUsage);

    SystemClock clock{*zone};
    return isPicture ? drawPicture(clock) : runWindow(clock);
}

Result<void> DesktopClient::applyTheme()
{
    ThemeConfigurator &configurator = ThemeConfigurator::shared();
    if (m_invocation.theme == u"light")
        configurator.setMode(ThemeConfigurator::Mode::Light);
    else if (m_invocation.theme == u"dark")
        configurator.setMode(ThemeConfigurator::Mode::Dark);
    else if (!m_invocation.theme.isEmpty())
        return Error{clientText("“%1” is no theme: there are light and dark.").arg(m_invocation.theme)};
    configurator.apply();
    return {};
}

std::unique_ptr<OrvaneKit> DesktopClient::openAsking(const CXClock &clock)
{
    for (;;) {
        OrvaneKit::Opening opening = OrvaneKit::open(m_folders, clock);
        if (opening.kit) return std::move(opening.kit);
        fail(opening.sentence, ExitStatus::CouldNot);
        if (askAboutStoreProblem(opening.problem, opening.sentence) == StoreProblemAnswer::Quit)
            return nullptr;
        if (const Result<QString> kept = Store::setAside(m_folders.store(), clock.localNow()); !kept) {
            fail(kept.error().sentence, ExitStatus::CouldNot);
            return nullptr;
        }
    }
}

int DesktopClient::runWindow(SystemClock &clock)
{
    DBusSingleInstance channel{m_folders, clock};
    SingleInstance instance{m_folders, channel};
    AppDelegate *delegate = nullptr;
    const Result<SingleInstance::Role> role =
        instance.start(launchRequestOf(m_invocation), [&delegate](const LaunchRequest &request) {
            if (delegate) delegate->open(request);
        });
    if (!role) {
        fail(role.error().sentence, ExitStatus::CouldNot);
        askAboutStoreProblem(StoreProblem::CannotWrite, role.error().sentence);
        return int(ExitStatus::CouldNot);
    }
    if (*role == SingleInstance::Role::HandedOver) return 0;

    CXLog::setSink(std::make_shared<RotatingFileSink>(m_folders.log()));
    CXLog::installQtMessageHandler();
    const std::unique_ptr<OrvaneKit> kit = openAsking(clock);
    if (!kit) return int(ExitStatus::CouldNot);
    if (m_invocation.isDemo)
        if (const Result<void> filled = fillDemoAccount(*kit); !filled)
            return fail(filled.error().sentence, ExitStatus::CouldNot);

    OutsideChangeWatcher outsideChanges{m_folders, kit->manager(), kit->center(), clock};
    LogindSleepMonitor sleepMonitor{kit->center(), clock};
    outsideChanges.start();
    sleepMonitor.start();

    DesktopRooms rooms{*kit, clock};
    delegate = &rooms.delegate();
    rooms.delegate().applicationDidFinishLaunching(launchRequestOf(m_invocation));
    if (qEnvironmentVariableIsSet("ORVANE_REPORT_FIRST_PAINT") && rooms.mainWindow().window())
        new FirstPaint{*rooms.mainWindow().window()->listPane().list().viewport(), [] {
                           reportFirstPaint();
                           QCoreApplication::quit();
                       }};
    const int status = QApplication::exec();
    rooms.delegate().applicationWillTerminate();
    delegate = nullptr;
    return status;
}

int DesktopClient::drawPicture(SystemClock &clock)
{
    const Result<PictureRequest> request =
        pictureRequest(m_invocation.pictureFile, m_invocation.page, m_invocation.size, m_invocation.scale);
    if (!request) return fail(request.error().sentence, ExitStatus::WrongUsage);
    const OrvaneKit::Opening opening = OrvaneKit::open(m_folders, clock);
    if (!opening.kit) return fail(opening.sentence, ExitStatus::CouldNot);
    OrvaneKit &kit = *opening.kit;
    if (m_invocation.isDemo)
        if (const Result<void> filled = fillDemoAccount(kit); !filled)
            return fail(filled.error().sentence, ExitStatus::CouldNot);

    const auto list = listOfPage(request->page, kit);
    if (!list) return fail(list.error().sentence, ExitStatus::WrongUsage);
    DesktopRooms rooms{kit, clock};
    QWidget *window = nullptr;
    if (*list) {
        rooms.mainWindow().show();
        rooms.mainWindow().select(**list);
        window = rooms.mainWindow().window();
    } else {
        rooms.welcomeWindow().showCentred();
        window = rooms.welcomeWindow().window();
    }
    window->resize(request->size);
    finishWork(kit);
    const Result<void> saved = savePicture(*window, request->file);
    return saved ? 0 : fail(saved.error().sentence, ExitStatus::CouldNot);
}
