#include "client/OpenClient.h"

#include "cli/CommandStreams.h"
#include "cli/DemoAccount.h"
#include "corvexkit/time/SystemClock.h"
#include "views/alerts/StoreProblemAlert.h"
#include "views/theme/FontWarmUp.h"

#include <QTextStream>

namespace {

std::unique_ptr<OrvaneKit> openAsking(const DataFolders &folders, const CXClock &clock)
{
    QTextStream err{stderr};
    for (;;) {
        OrvaneKit::Opening opening = OrvaneKit::open(folders, clock);
        if (opening.kit) return std::move(opening.kit);
        failWith(opening.sentence, ExitStatus::CouldNot, err);
        err.flush();
        if (askAboutStoreProblem(opening.problem, opening.sentence) == StoreProblemAnswer::Quit)
            return nullptr;
        if (const Result<QString> kept = Store::setAside(folders.store(), clock.localNow()); !kept) {
            failWith(kept.error().sentence, ExitStatus::CouldNot, err);
            return nullptr;
        }
    }
}

} // namespace

std::unique_ptr<OpenClient> OpenClient::open(const DataFolders &folders, const Invocation &invocation,
                                             SystemClock &clock, FontWarmUp &fonts)
{
    std::unique_ptr<OrvaneKit> kit = openAsking(folders, clock);
    if (!kit) return nullptr;
    if (const Result<void> filled = invocation.isDemo ? fillDemoAccount(*kit) : Result<void>{}; !filled) {
        QTextStream err{stderr};
        failWith(filled.error().sentence, ExitStatus::CouldNot, err);
        return nullptr;
    }
    fonts.finish();
    return std::unique_ptr<OpenClient>{new OpenClient{std::move(kit), clock}};
}

OpenClient::OpenClient(std::unique_ptr<OrvaneKit> kit, SystemClock &clock)
    : m_kit(std::move(kit))
    , m_outsideChanges(m_kit->folders(), m_kit->manager(), m_kit->center(), clock)
    , m_sleepMonitor(m_kit->center(), clock)
    , m_rooms(*m_kit, clock)
{
    m_outsideChanges.start();
    m_sleepMonitor.start();
}
