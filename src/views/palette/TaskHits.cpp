#include "views/palette/TaskHits.h"

#include "corvexkit/log/CXLog.h"
#include "lists/KWProjectListPresenter.h"
#include "model/OrvaneKit.h"
#include "model/records/KWSmartProject.h"

namespace {

constexpr CXLogger searchLog{u"search"};

} // namespace

TaskHits::TaskHits(OrvaneKit &kit, KWProjectListPresenter &sidebar,
                   std::function<bool(const QString &)> isHidden)
    : m_kit(kit), m_sidebar(sidebar), m_isHidden(std::move(isHidden))
{
}

QList<FoundRow> TaskHits::find(const QString &text, std::int64_t limit) const
{
    const TaskSearchRequest request{.userID = m_kit.account().currentUserID(), .text = text, .limit = limit};
    const auto hits = TaskSearch::find(request, m_kit.context().clock(), m_kit.context().connection());
    QList<FoundRow> rows;
    if (!hits) {
        searchLog.error(hits.error().sentence);
        return rows;
    }
    QHash<QString, QString> listNames;
    if (const auto &contents = m_sidebar.contents())
        for (const KWProjectModel &each : contents->projects + contents->closedProjects)
            listNames.insert(each.sid, each.isInbox ? KWSmartProject::inbox().displayName() : each.name);
    for (const TaskSearchHit &each : *hits)
        if (!m_isHidden(each.row.sid))
            rows.append({.kind = FoundRow::Kind::Task,
                         .id = each.row.sid,
                         .title = each.row.title,
                         .titleMarks = each.titleMarks,
                         .excerpt = each.excerpt,
                         .excerptMarks = each.excerptMarks,
                         .note = listNames.value(each.row.projectID),
                         .isClosed = each.row.isClosed()});
    return rows;
}
