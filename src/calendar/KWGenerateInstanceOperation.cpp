#include "calendar/KWGenerateInstanceOperation.h"

#include "calendar/RepeatInstanceRun.h"
#include "model/store/KWCoreDataManager.h"

KWGenerateInstanceOperation::KWGenerateInstanceOperation(KWCoreDataManager &manager, QString userID,
                                                         Instant startDate, Instant endDate,
                                                         Completion completion)
    : m_manager(manager)
    , m_userID(std::move(userID))
    , m_startDate(startDate)
    , m_endDate(endDate)
    , m_completion(std::move(completion))
{
}

void KWGenerateInstanceOperation::main()
{
    const auto generated = std::make_shared<bool>(false);
    const auto generate = [generated, self = weak_from_this(), userID = m_userID, start = m_startDate,
                           end = m_endDate](ObjectContext &context) -> Result<void> {
        const auto isCancelled = [&self] {
            const auto operation = self.lock();
            return !operation || operation->isCancelled();
        };
        const Result<bool> done = RepeatInstanceRun{{userID, start, end}, context, isCancelled}.perform();
        if (!done) return done.error();
        *generated = *done;
        return {};
    };
    KWCoreDataService{m_manager}.async_save(
        generate, [this, generated, self = shared_from_this()](const Result<void> &saved) {
            m_completion(saved && *generated, m_startDate, m_endDate);
            finish();
        });
}
