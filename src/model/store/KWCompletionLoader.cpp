#include "model/store/KWCompletionLoader.h"

#include "model/store/KWListDataFetcher.h"

KWCompletionLoader::KWCompletionLoader(KWCoreDataManager &manager, QString userID)
    : m_manager(manager), m_userID(std::move(userID))
{
}

void KWCompletionLoader::load(const CompletedTasksRequest &request, const Taken &taken, Completion completion)
{
    auto page = std::make_shared<CompletedPage>();
    const auto read = [page, request](ObjectContext &context) -> Result<void> {
        CompletedTasksRequest oneMore = request;
        if (request.limit >= 0) ++oneMore.limit;
        auto rows = KWListDataFetcher{context.clock()}.completedTasks(oneMore, context.connection());
        if (!rows) return rows.error();
        page->models = std::move(*rows);
        page->isTotallyLoaded = request.limit < 0 || page->models.size() <= request.limit;
        if (!page->isTotallyLoaded) page->models.removeLast();
        return {};
    };
    KWCoreDataService{m_manager}.async_perform(
        read, [page, taken, completion = std::move(completion),
               life = std::weak_ptr{m_life}](const Result<void> &done) {
            if (life.expired()) return;
            if (done && taken) taken(*page);
            completion(done ? Result<CompletedPage>{std::move(*page)} : Result<CompletedPage>{done.error()});
        });
}

void KWCompletionLoader::loadCompletedTasks(const QString &sectionID, const QStringList &projectIDs,
                                            Completion completion)
{
    CompletedTasksRequest request{.userID = m_userID, .projectIDs = projectIDs, .limit = pageSize};
    if (const auto end = m_ends.constFind(sectionID); end != m_ends.constEnd()) request.after = *end;
    const auto taken = [this, sectionID](const CompletedPage &page) {
        if (page.models.isEmpty()) return;
        const KWTaskListItemModel &last = page.models.last();
        m_ends.insert(sectionID, {last.completionDate.value_or(Instant{}), last.sid});
    };
    load(request, taken, std::move(completion));
}

void KWCompletionLoader::loadCalendarCompletedTasks(Instant beginDate, Instant endDate, Completion completion)
{
    load({.userID = m_userID, .from = beginDate, .until = endDate}, {}, std::move(completion));
}

std::optional<Instant> KWCompletionLoader::earliestTaskCompletionDate(const QString &sectionID) const
{
    const auto end = m_ends.constFind(sectionID);
    return end == m_ends.constEnd() ? std::nullopt : std::optional{end->completionDate};
}
