#include "model/store/KWProjectListCountFetcher.h"

#include "corvexkit/log/CXLog.h"
#include "model/events/NotificationNames.h"

namespace {

constexpr CXLogger countLog{u"counts"};

} // namespace

KWProjectListCountFetcher::KWProjectListCountFetcher(KWCoreDataManager &manager, KWNotificationCenter &center)
    : m_manager(manager), m_center(center)
{
}

std::optional<int> KWProjectListCountFetcher::countCached(const KWListIdentifier &list) const
{
    return m_counts.value(list.userDefaultEncode());
}

void KWProjectListCountFetcher::clear()
{
    ++m_generation;
    m_counts.clear();
    m_wanted.clear();
}

void KWProjectListCountFetcher::updateCountCache(const QString &userID, const QList<KWListIdentifier> &lists)
{
    m_userID = userID;
    for (const KWListIdentifier &each : lists)
        if (!m_wanted.contains(each)) m_wanted.append(each);
    if (!m_isCounting) recount();
}

void KWProjectListCountFetcher::recount()
{
    if (m_wanted.isEmpty()) return;
    m_isCounting = true;
    auto counts = std::make_shared<Counts>();
    const auto count =
        [counts, userID = m_userID, lists = std::exchange(m_wanted, {}),
         fetcher = KWListDataFetcher{m_manager.store().clock()}](ObjectContext &context) -> Result<void> {
        for (const KWListIdentifier &each : lists) {
            const Result<std::optional<int>> number = fetcher.count({userID, each}, context.connection());
            if (!number) return number.error();
            counts->insert(each.userDefaultEncode(), *number);
        }
        return {};
    };
    KWCoreDataService{m_manager}.async_perform(
        count,
        [this, counts, generation = m_generation, life = std::weak_ptr{m_life}](const Result<void> &done) {
            if (life.expired()) return;
            m_isCounting = false;
            if (!done) countLog.error(done.error().sentence);
            if (generation == m_generation && done) {
                m_counts.insert(*counts);
                m_center.post(countChanged);
            }
            recount();
        });
}
