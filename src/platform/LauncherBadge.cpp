#include "platform/LauncherBadge.h"

#include "corvexkit/log/CXLog.h"
#include "model/account/KWAccountManager.h"
#include "model/records/KWHabit.h"
#include "model/settings/KWUserDefaults.h"
#include "model/store/KWCoreDataManager.h"
#include "model/store/KWTaskFinder.h"

#include <QDBusMessage>

using namespace Qt::StringLiterals;

namespace {

constexpr CXLogger badgeLog{u"badge"};

/// What the badge counts, by value.
struct BadgeContents {
    KWBadgeType type = KWBadgeType::None;
    TaskOwner owner{};
    bool hasHabits = false;

    int count(ObjectContext &context) const
    {
        if (owner.userID.isEmpty() || type == KWBadgeType::None) return 0;
        const int tasks = KWTaskFinder::countOnBadgeWithType(type, owner, context);
        if (!hasHabits) return tasks;
        return tasks + KWHabit::countOpenToday(owner.userID, context);
    }
};

} // namespace

LauncherBadge::LauncherBadge(KWCoreDataManager &manager, KWAccountManager &account, KWUserDefaults &defaults,
                             BusConnector connector)
    : m_manager(manager), m_account(account), m_defaults(defaults), m_connector(std::move(connector))
{
}

void LauncherBadge::refreshBadge(std::function<void()> whenShown)
{
    m_waiting.push_back(std::move(whenShown));
    if (m_counting.empty()) count();
}

void LauncherBadge::count()
{
    m_counting = std::exchange(m_waiting, {});
    BadgeContents contents{.type = KWBadgeType(m_defaults.value(Settings::badgeTypeShownInDock))};
    if (const auto &user = m_account.currentUser()) {
        contents.owner = {user->sid, user->userServerID};
        contents.hasHabits = m_account.userSettings().showsInToday;
    }
    const auto number = std::make_shared<int>(0);
    KWCoreDataService{m_manager}.async_perform(
        [number, contents](ObjectContext &context) -> Result<void> {
            *number = contents.count(context);
            return {};
        },
        [this, number, generation = m_generation, life = std::weak_ptr{m_life}](const Result<void> &done) {
            if (life.expired()) return;
            if (!done) badgeLog.error(done.error().sentence);
            didCount(done ? std::optional{*number} : std::nullopt, generation);
        });
}

void LauncherBadge::didCount(std::optional<int> number, int generation)
{
    if (number && generation == m_generation) send(*number);
    for (const auto &each : std::exchange(m_counting, {}))
        each();
    if (!m_waiting.empty()) count();
}

void LauncherBadge::clearBadge()
{
    ++m_generation;
    send(0);
}

void LauncherBadge::send(int number)
{
    if (number == m_shown) return;
    m_shown = number;
    QDBusMessage update = QDBusMessage::createSignal(u"/org/orvane/Orvane/launcher"_s,
                                                     u"com.canonical.Unity.LauncherEntry"_s, u"Update"_s);
    update << u"application://org.orvane.Orvane.desktop"_s
           << QVariantMap{{u"count"_s, qlonglong(number)}, {u"count-visible"_s, number > 0}};
    m_connector().send(update);
}
