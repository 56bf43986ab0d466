#include "model/store/TaskSearch.h"

#include "model/records/OneLine.h"
#include "model/store/ColumnCodec.h"
#include "model/store/Connection.h"
#include "model/store/KWListDataFetcher.h"
#include "model/store/StoreFailure.h"

#include <algorithm>

namespace {

// So many are put in order; one letter may fit tens of thousands.
constexpr std::int64_t orderedHits = 300;
constexpr qsizetype excerptLead = 30;
constexpr qsizetype excerptLength = 160;

struct Found {
    QString taskID;
    QString contents;
};

QList<Found> latestFound(const TaskSearchRequest &request, const SearchPhrase &phrase, Connection &connection)
{
    auto statement = connection.prepare(
        "SELECT t.sid, CASE t.kind WHEN 'CHECKLIST' THEN t.\"desc\" ELSE t.content END "
        "FROM (SELECT t.id AS found FROM taskSearch CROSS JOIN tasks t ON t.id = taskSearch.rowid "
        "WHERE taskSearch MATCH ? AND t.userID = ? AND t.isDeleted = 0 AND t.isTrashed = 0 "
        "ORDER BY taskSearch.rowid DESC LIMIT ?) "
        "CROSS JOIN tasks t ON t.id = found ORDER BY t.status <> 0, found DESC LIMIT ?");
    const QString words = phrase.matchExpression();
    const bool inTitles = request.scope == SearchScope::Titles;
    statement.bind({inTitles ? QStringLiteral("title : (%1)").arg(words) : words, request.userID, orderedHits,
                    request.limit});
    QList<Found> found;
    while (statement->executeStep()) {
        Found &each = found.emplaceBack();
        columns::read(statement->getColumn(0), each.taskID);
        columns::read(statement->getColumn(1), each.contents);
    }
    return found;
}

void excerpt(const QString &contents, const SearchPhrase &phrase, TaskSearchHit &hit)
{
    const QList<TextMark> marks = phrase.marksIn(contents);
    if (marks.isEmpty()) return;
    qsizetype start = std::max<qsizetype>(0, marks.first().position - excerptLead);
    if (start > 0) // at a word's beginning, where there is one
        if (const qsizetype space = contents.indexOf(u' ', start);
            space >= 0 && space < marks.first().position)
            start = space + 1;
    hit.excerpt = onOneLine(contents.mid(start, excerptLength));
    hit.excerptMarks = phrase.marksIn(hit.excerpt);
}

} // namespace

Result<QList<TaskSearchHit>> TaskSearch::find(const TaskSearchRequest &request, const CXClock &clock,
                                              Connection &connection)
{
    const SearchPhrase phrase{request.text};
    QList<TaskSearchHit> hits;
    if (phrase.isEmpty()) return hits;
    QHash<QString, QString> contents;
    QStringList taskIDs;
    try {
        for (const Found &each : latestFound(request, phrase, connection)) {
            contents.insert(each.taskID, each.contents);
            taskIDs.append(each.taskID);
        }
    } catch (const SQLite::Exception &exception) {
        return storeFailure(exception);
    }
    auto rows = KWListDataFetcher{clock}.generateModels(taskIDs, connection);
    if (!rows) return rows.error();
    for (KWTaskListItemModel &row : *rows) {
        TaskSearchHit &hit = hits.emplaceBack();
        hit.titleMarks = phrase.marksIn(row.title);
        if (request.scope == SearchScope::TitlesAndContents) excerpt(contents.value(row.sid), phrase, hit);
        hit.row = std::move(row);
    }
    std::ranges::stable_sort(hits, {}, [](const TaskSearchHit &each) {
        return std::pair{each.row.isClosed(), each.titleMarks.isEmpty()};
    });
    return hits;
}
