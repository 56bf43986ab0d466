#include "client/DesktopClient.h"

#include "app/AppDelegate.h"
#include "app/KWAbnormalDataCleanService.h"
#include "app/RunMarker.h"
#include "app/SingleInstance.h"
#include "cli/CommandStreams.h"
#include "cli/CommandText.h"
#include "cli/DemoAccount.h"
#include "cli/RunSettings.h"
#include "client/FirstPaintReport.h"
#include "client/OpenClient.h"
#include "client/PageDrawing.h"
#include "client/QuitQuestion.h"
#include "client/RelaunchArguments.h"
#include "corvexkit/log/RotatingFileSink.h"
#include "corvexkit/time/SystemClock.h"
#include "platform/DBusSingleInstance.h"
#include "platform/DesktopFileManager.h"
#include "platform/Relaunch.h"
#include "platform/ScriptingBus.h"
#include "platform/TerminationSignals.h"
#include "platform/XdgMail.h"
#include "views/alerts/Alert.h"
#include "views/alerts/AlertPresenter.h"
#include "views/alerts/CrashProtectionWindow.h"
#include "views/main/FirstPaint.h"
#include "views/main/MainWindow.h"
#include "views/pictures/PagePicture.h"
#include "views/tasklist/TaskListPane.h"
#include "views/tasklist/TaskListView.h"
#include "views/theme/FontWarmUp.h"
#include "views/theme/ThemeConfigurator.h"

#include <QApplication>
#include <QDir>
#include <QTemporaryFile>
#include <QTextStream>

#include <algorithm>
#include <array>

using namespace Qt::StringLiterals;

namespace {

// What the engine of the plugin `web` needs to find when it is loaded later. Nothing of it is loaded here,
// and on X11 less than without it: what this program draws needs no OpenGL.
class WebEngineGround {
public:
    WebEngineGround()
    {
        QCoreApplication::setAttribute(Qt::AA_ShareOpenGLContexts);
        if (m_isOurs) qputenv(integration, "none");
    }
    /// The application is made; programs that it starts are not to be like it.
    void leave() const
    {
        if (m_isOurs) qunsetenv(integration);
    }

private:
    static constexpr const char *integration = "QT_XCB_GL_INTEGRATION";
    const bool m_isOurs = !qEnvironmentVariableIsSet(integration);
};

int fail(const QString &sentence, ExitStatus status)
{
    QTextStream err{stderr};
    return int(failWith(sentence, status, err));
}

// Qt would end the program with a core dump.
bool hasDisplay()
{
    return std::ranges::any_of(std::array{"DISPLAY", "WAYLAND_DISPLAY", "WAYLAND_SOCKET", "QT_QPA_PLATFORM"},
                               [](const char *name) { return !qEnvironmentVariableIsEmpty(name); });
}

Result<PictureRequest> pictureRequestOf(const Invocation &invocation)
{
    return PictureRequest::read({.file = invocation.pictureFile,
                                 .page = invocation.page,
                                 .size = invocation.size,
                                 .scale = invocation.scale,
                                 .textSize = invocation.textSize});
}

// A screen of the offscreen platform that is as large as the picture: what pops up stays within it.
class PictureScreen {
public:
    explicit PictureScreen(const PictureRequest &request)
    {
        const QSize size = request.size * request.scale;
        if (m_file.open())
            m_file.write(
                QByteArray{R"({"windowFrameMargins": false, "screens": [{"width": %1, "height": %2}]})"}
                    .replace("%1", QByteArray::number(size.width()))
                    .replace("%2", QByteArray::number(size.height())));
        m_file.close();
    }
    QByteArray platform() const { return "offscreen:configfile=" + QFile::encodeName(m_file.fileName()); }

private:
    QTemporaryFile m_file{QDir::tempPath() + u"/orvane-screen-XXXXXX"_s};
};

LaunchCause causeOf(const Invocation &invocation)
{
    if (invocation.opensWindow) return LaunchCause::AddTask;
    if (invocation.sendsDiagnostics) return LaunchCause::Diagnostics;
    return invocation.isLoginItem ? LaunchCause::LoginItem : LaunchCause::Person;
}

LaunchRequest launchRequestOf(const Invocation &invocation)
{
    const bool addsTask = invocation.opensWindow;
    return {.cause = causeOf(invocation),
            .links = addsTask ? QStringList{} : invocation.arguments,
            .title = addsTask ? invocation.arguments.join(u' ') : QString{},
            .activationToken = qEnvironmentVariable("XDG_ACTIVATION_TOKEN")};
}

// For bench/start_bench.
void reportFirstPaintIfAsked(OpenClient &client)
{
    MainWindow *window = client.rooms().mainWindow().window();
    if (!window || !qEnvironmentVariableIsSet("ORVANE_REPORT_FIRST_PAINT")) return;
    new FirstPaint{*window->listPane().list().viewport(), [] {
                       reportFirstPaint();
                       QCoreApplication::quit();
                   }};
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
    std::optional<PictureScreen> screen;
    if (isPicture) {
        CXLog::installQtMessageHandler(); // standard error is for what went wrong
        qputenv("QT_QPA_PLATFORM", screen.emplace(pictureRequestOf(m_invocation).valueOr({})).platform());
        if (!m_invocation.scale.isEmpty()) qputenv("QT_SCALE_FACTOR", m_invocation.scale.toUtf8());
    }
    if (!isPicture && !hasDisplay())
        return fail(commandText("There is no display to open the window on; commands such as `orvane list` "
                                "need none."),
                    ExitStatus::CouldNot);
    FontWarmUp fonts;
    const WebEngineGround ground;
    const QApplication application{argc, argv};
    ground.leave();
    QApplication::setDesktopFileName(u"org.orvane.Orvane"_s);

    const Result<std::optional<CXTimeZone>> zone = zoneOf(m_invocation);
    if (!zone) return fail(zone.error().sentence, ExitStatus::WrongUsage);
    if (const Result<void> locale = applyLocale(m_invocation); !locale)
        return fail(locale.error().sentence, ExitStatus::WrongUsage);
    QApplication::setLayoutDirection(layoutDirectionOf(m_invocation));

    SystemClock clock{*zone};
    if (!isPicture) return runWindow(clock, fonts);
    fonts.finish();
    return drawPicture(clock);
}

Result<void> DesktopClient::applyTheme()
{
    ThemeConfigurator &configurator = ThemeConfigurator::shared();
    const KWUserDefaults defaults{m_folders.config};
    const QString theme = m_invocation.theme.isEmpty() ? defaults.value(Settings::theme) : m_invocation.theme;
    configurator.setMode(ThemeConfigurator::modeNamed(theme));
    if (m_invocation.action == Invocation::Action::Window)
        configurator.setDesktopTextScale(defaults.value(Settings::desktopTextScale));
    if (!m_invocation.theme.isEmpty() && configurator.mode() == ThemeConfigurator::Mode::FollowDesktop)
        return Error{commandText("“%1” is no theme: there are light and dark.").arg(m_invocation.theme)};
    configurator.apply();
    return {};
}

int DesktopClient::runWindow(SystemClock &clock, FontWarmUp &fonts)
{
    ScriptingBus scripting;
    DBusSingleInstance channel{m_folders, clock};
    SingleInstance instance{m_folders, channel};
    KWUserDefaults defaults{m_folders.config};
    AlertPresenter alerts;
    DesktopFileManager fileManager;
    XdgMail mail;
    KWAbnormalDataCleanService diagnostics{
        {m_folders, clock, alerts, fileManager, mail, [] { QCoreApplication::quit(); }}};
    CrashProtectionWindow alert{m_folders, clock, diagnostics};
    std::unique_ptr<OpenClient> client;
    Relaunch relaunch{QCoreApplication::applicationFilePath(), [&] {
                          const MainWindow *window = client ? client->rooms().mainWindow().window() : nullptr;
                          return relaunchArguments(m_invocation, !window || !window->isVisible());
                      }};
    ExitStatus withoutClient = ExitStatus::Done; // the person quit before anything was opened
    AppDelegate delegate{clock, defaults, alert, [&]() -> RunningApplication * {
                             withoutClient = ExitStatus::CouldNot;
                             client =
                                 OpenClient::open(m_folders, m_invocation, clock, fonts, relaunch, scripting);
                             return client ? &client->rooms().application() : nullptr;
                         }};

    bool isRunning = false;
    bool isEnded = false;
    const QuitQuestion quitQuestion{{.isSettled = [&isEnded] { return isEnded; },
                                     .refused =
                                         [&] {
                                             relaunch.forget();
                                             client->stay();
                                         }}};
    const TerminationSignals signals{[&] {
        isEnded = true;
        relaunch.forbid();
        // Before the program runs there is nothing to hand over, and only alerts to end. A dialog that would
        // ask first does not hold it up.
        if (isRunning) QApplication::closeAllWindows();
        QCoreApplication::exit();
    }};

    const LaunchRequest request = launchRequestOf(m_invocation);
    scripting.appear();
    const auto role =
        instance.start(request, [&delegate](const LaunchRequest &later) { delegate.open(later); });
    if (role && *role == SingleInstance::Role::HandedOver) {
        if (!m_invocation.isDemo) return 0;
        return fail(commandText("Orvane is open on this folder already; the demo fills an empty one."),
                    ExitStatus::CouldNot);
    }
    if (const Result<void> theme = applyTheme(); !theme)
        return fail(theme.error().sentence, ExitStatus::WrongUsage);
    if (!role) {
        const int status = fail(role.error().sentence, ExitStatus::CouldNot);
        Alert::run({commandText("Orvane cannot start"), role.error().sentence, {commandText("Quit")}});
        return status;
    }

    CXLog::setSink(std::make_shared<RotatingFileSink>(m_folders.log()));
    CXLog::installQtMessageHandler();
    RunMarker marker{m_folders.runMarker()};
    const LastRun lastRun = marker.begin();
    delegate.applicationDidFinishLaunching(request);
    if (!client) {
        delegate.applicationWillTerminate();
        // Nobody has looked after the store yet.
        if (lastRun == LastRun::Ended) marker.end();
        return int(withoutClient);
    }
    client->setWindowIcon();
    client->followDesktopAppearance();
    client->lookAfterStore(lastRun);
    client->followCalendars();
    client->rooms().menu().handle(MenuCommand::SendDiagnostics, alerts,
                                  [&diagnostics] { diagnostics.run(); });
    reportFirstPaintIfAsked(*client);
    isRunning = !isEnded;
    const int status = isRunning ? QApplication::exec() : int(ExitStatus::Done);
    delegate.applicationWillTerminate();
    client.reset();
    marker.end();
    instance.release();
    if (!relaunch.startIfWanted())
        return fail(commandText("Orvane could not start itself again."), ExitStatus::CouldNot);
    return status;
}

int DesktopClient::drawPicture(SystemClock &clock)
{
    if (const Result<void> theme = applyTheme(); !theme)
        return fail(theme.error().sentence, ExitStatus::WrongUsage);
    const Result<PictureRequest> request = pictureRequestOf(m_invocation);
    if (!request) return fail(request.error().sentence, ExitStatus::WrongUsage);
    ThemeConfigurator::shared().setDesktopTextScale(request->textScale);
    const OrvaneKit::Opening opening = OrvaneKit::open(m_folders, clock);
    if (!opening.kit) return fail(opening.sentence, ExitStatus::CouldNot);
    OrvaneKit &kit = *opening.kit;
    if (const Result<void> filled = m_invocation.isDemo ? fillDemoAccount(kit) : Result<void>{}; !filled)
        return fail(filled.error().sentence, ExitStatus::CouldNot);

    const Result<PicturePage> page = PicturePage::read(request->page, kit);
    if (!page) return fail(page.error().sentence, ExitStatus::WrongUsage);
    const Result<void> drawn = drawPage(*page, *request, kit, clock);
    return drawn ? 0 : fail(drawn.error().sentence, ExitStatus::CouldNot);
}
