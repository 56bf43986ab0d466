#include "model/store/KWCompletionLoader.h"

#include "model/store/KWListDataFetcher.h"

void CompletedPage::updateIsTotallyLoaded(std::int64_t limit)
{
    isTotallyLoaded = limit < 0 || models.size() <= limit;
    if (!isTotallyLoaded) models.removeLast();
}

KWCompletionLoader::KWCompletionLoader(KWCoreDataManager &manager, QString userID)
    : m_manager(manager), m_userID(std::move(userID))
{
}

void KWCompletionLoader::load(const CompletedTasksRequest &request, Completion completion)
{
    auto page = std::make_shared<CompletedPage>();
    const auto read = [page, request](ObjectContext &context) -> Result<void> {
        CompletedTasksRequest oneMore = request;
        if (request.limit >= 0) ++oneMore.limit;
        auto rows = KWListDataFetcher{context.clock()}.completedTasks(oneMore, context.connection());
        if (!rows) return rows.error();
        page->models = std::move(*rows);
        page->updateIsTotallyLoaded(request.limit);
        return {};
    };
    KWCoreDataService{m_manager}.async_perform(
        read,
        [page, completion = std::move(completion), life = std::weak_ptr{m_life}](const Result<void> &done) {
            if (life.expired()) return;
            completion(done ? Result<CompletedPage>{std::move(*page)} : Result<CompletedPage>{done.error()});
        });
}

void KWCompletionLoader::loadCompletedTasks(const QString &sectionID, const QStringList &projectIDs,
                                            Completion completion)
{
    std::shared_ptr<Section> &section = m_sections[sectionID];
    if (!section) section = std::make_shared<Section>();
    section->wanted.append({projectIDs, std::move(completion)});
    if (section->wanted.size() == 1) loadNextPage(section);
}

void KWCompletionLoader::loadNextPage(const std::shared_ptr<Section> &section)
{
    load({.userID = m_userID,
          .projectIDs = section->wanted.first().projectIDs,
          .after = section->end,
          .limit = pageSize},
         [this, section](const Result<CompletedPage> &page) {
             if (page && !page->models.isEmpty())
                 section->end = {page->models.last().completionDate, page->models.last().rowID};
             const WantedPage answered = section->wanted.takeFirst();
             if (!section->wanted.isEmpty()) loadNextPage(section);
             answered.completion(page);
         });
}

void KWCompletionLoader::loadCalendarCompletedTasks(Instant beginDate, Instant endDate, Completion completion)
{
    load({.userID = m_userID, .from = beginDate, .until = endDate}, std::move(completion));
}

std::optional<Instant> KWCompletionLoader::earliestTaskCompletionDate(const QString &sectionID) const
{
    const std::shared_ptr<Section> section = m_sections.value(sectionID);
    return section && section->end ? section->end->completionDate : std::nullopt;
}
