#include "client/OpenClient.h"

#include "app/DataCare.h"
#include "cli/CommandStreams.h"
#include "cli/DemoAccount.h"
#include "client/WebPages.h"
#include "corvexkit/time/SystemClock.h"
#include "model/settings/KWLocalizedString.h"
#include "views/alerts/Alert.h"
#include "views/alerts/StoreProblemAlert.h"
#include "views/main/FirstPaint.h"
#include "views/main/MainWindow.h"
#include "views/quickadd/QuickAddWindow.h"
#include "views/sidebar/KWProjectListView.h"
#include "views/sidebar/SidebarView.h"
#include "views/theme/FontWarmUp.h"
#include "views/theme/Icons.h"
#include "views/theme/ThemeConfigurator.h"
#include "views/welcome/WelcomeWindow.h"

#include <QGuiApplication>
#include <QTextStream>

namespace {

// The store to go on with after a problem: a backup, or a fresh one.
Result<void> replaceStore(StoreProblemAnswer answer, const std::optional<StoreBackup> &backup,
                          const DataFolders &folders, const CXClock &clock)
{
    const Result<QString> kept = answer == StoreProblemAnswer::RestoreBackup
                                     ? restoreStore(backup->path, folders, clock)
                                     : Store::startFresh(folders.store(), clock, AsideReason::Damaged);
    return kept ? Result<void>{} : kept.error();
}

std::unique_ptr<OrvaneKit> openAsking(const DataFolders &folders, const CXClock &clock)
{
    QTextStream err{stderr};
    for (;;) {
        OrvaneKit::Opening opening = OrvaneKit::open(folders, clock);
        if (opening.kit) return std::move(opening.kit);
        failWith(opening.sentence, ExitStatus::CouldNot, err);
        err.flush();
        std::optional<StoreBackup> backup;
        if (opening.problem == StoreProblem::Damaged || opening.problem == StoreProblem::Lost)
            backup = StoreBackups{folders}.newestGood();
        const StoreProblemAnswer answer = askAboutStoreProblem(opening.problem, opening.sentence, backup);
        if (answer == StoreProblemAnswer::Quit) return nullptr;
        if (const Result<void> replaced = replaceStore(answer, backup, folders, clock); !replaced) {
            failWith(replaced.error().sentence, ExitStatus::CouldNot, err);
            return nullptr;
        }
    }
}

// What the preferences asked for before the program started anew.
void restoreBackupIfAsked(const DataFolders &folders, const CXClock &clock)
{
    KWUserDefaults defaults{folders.config};
    const Result<void> restored = DataCare::restoreWhatWasAsked(folders, defaults, clock);
    if (restored) return;
    Alert::run({KWLocalizedString("The backup could not be brought back"),
                restored.error().sentence,
                {KWLocalizedString("Continue")}});
}

std::optional<ColorScheme> schemeOf(PortalAppearance::ColorScheme scheme)
{
    if (scheme == PortalAppearance::ColorScheme::None) return std::nullopt;
    return scheme == PortalAppearance::ColorScheme::Dark ? ColorScheme::Dark : ColorScheme::Light;
}

StatusNotifierArea::OlderKind olderStatusArea()
{
    using enum StatusNotifierArea::OlderKind;
    return QGuiApplication::platformName() == u"xcb" ? Possible : Impossible;
}

QWidget *firstWidgetOf(DesktopRooms &rooms)
{
    if (MainWindow *window = rooms.mainWindow().window()) return window->sidebar().tree().viewport();
    if (rooms.quickAdd().window()) return rooms.quickAdd().window();
    return rooms.welcomeWindow().window();
}

} // namespace

std::unique_ptr<OpenClient> OpenClient::open(const DataFolders &folders, const Invocation &invocation,
                                             SystemClock &clock, FontWarmUp &fonts, RelaunchPort &relaunch,
                                             ScriptingBus &scripting)
{
    restoreBackupIfAsked(folders, clock);
    std::unique_ptr<OrvaneKit> kit = openAsking(folders, clock);
    if (!kit) return nullptr;
    if (const Result<void> filled = invocation.isDemo ? fillDemoAccount(*kit) : Result<void>{}; !filled) {
        QTextStream err{stderr};
        failWith(filled.error().sentence, ExitStatus::CouldNot, err);
        return nullptr;
    }
    fonts.finish();
    return std::unique_ptr<OpenClient>{
        new OpenClient{std::move(kit), invocation, clock, relaunch, scripting}};
}

OpenClient::OpenClient(std::unique_ptr<OrvaneKit> kit, const Invocation &invocation, SystemClock &clock,
                       RelaunchPort &relaunch, ScriptingBus &scripting)
    : m_kit(std::move(kit))
    , m_outsideChanges(m_kit->folders(), m_kit->manager(), m_kit->center(), clock)
    , m_sleepMonitor(m_kit->center(), clock)
    , m_zoneWatch(m_kit->center(), clock, [&clock] { return clock.refreshZone(); })
    , m_loginItem(m_kit->folders())
    , m_notifications(m_panel)
    , m_badge(m_kit->manager(), m_kit->account(), m_kit->defaults())
    , m_statusArea(clock, olderStatusArea())
    , m_feeds(clock)
    , m_focusSound(m_kit->defaults())
    , m_caret(clock)
    , m_rooms(*m_kit, clock,
              {.relaunch = relaunch,
               .loginItem = m_loginItem,
               .notifications = m_notifications,
               .dock = m_badge,
               .statusArea = m_statusArea,
               // What is shown to others does not depend on the network.
               .feeds = invocation.isDemo ? absent<FeedDownloadPort>() : m_feeds,
               .focusSound = m_focusSound,
               .mail = m_mail,
               .webPages = webPagePlugin,
               .followsSystemZone = invocation.zone.isEmpty()})
    , m_dataCare(*m_kit, relaunch)
    , m_damage(m_alerts, m_dataCare)
    , m_storeCare(m_kit->manager(), m_kit->center(), m_kit->folders())
    , m_scripting(*m_kit, clock, m_rooms, scripting)
{
    m_outsideChanges.start();
    m_sleepMonitor.start();
    m_zoneWatch.start();
    m_statusArea.start();
}

void OpenClient::setWindowIcon()
{
    afterFirstPaint([] { QGuiApplication::setWindowIcon(Icons::applicationIcon()); });
}

void OpenClient::followDesktopAppearance()
{
    m_appearance.onColorScheme = [](PortalAppearance::ColorScheme told) {
        ThemeConfigurator::shared().setDesktopScheme([scheme = schemeOf(told)] { return scheme; });
    };
    m_appearance.onTextScale = [this](double scale) {
        KWUserDefaults &defaults = m_kit->defaults();
        if (defaults.value(Settings::desktopTextScale) != scale)
            defaults.set(Settings::desktopTextScale, scale);
        ThemeConfigurator::shared().setDesktopTextScale(scale);
    };
    afterFirstPaint([this] { m_appearance.start(); });
}

void OpenClient::stay()
{
    m_kit->defaults().remove(Settings::restoreAtStart);
    m_kit->defaults().synchronise();
    m_rooms.mainWindow().show();
    if (MainWindow *window = m_rooms.mainWindow().window()) {
        window->raise();
        window->activateWindow();
    }
}

void OpenClient::followCalendars()
{
    afterFirstPaint([this] { m_rooms.calendars().start(); });
}

void OpenClient::lookAfterStore(LastRun lastRun)
{
    m_storeCare.onDamage = [this](const std::optional<StoreBackup> &newestGood) { m_damage.ask(newestGood); };
    afterFirstPaint([this, lastRun] { m_storeCare.start(lastRun); });
}

void OpenClient::afterFirstPaint(std::function<void()> action)
{
    if (QWidget *widget = firstWidgetOf(m_rooms))
        new FirstPaint{*widget, std::move(action)};
    else
        action();
}
