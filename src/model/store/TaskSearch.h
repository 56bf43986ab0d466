#pragma once

#include "corvexkit/Result.h"
#include "model/store/KWTaskListItemModel.h"
#include "model/text/SearchWords.h"

class CXClock;
class Connection;

enum class SearchScope { Titles, TitlesAndContents };

struct TaskSearchRequest {
    QString userID;
    QString text; ///< as typed so far, see SearchPhrase
    SearchScope scope = SearchScope::TitlesAndContents;
    std::int64_t limit = 50;
};

/// A found task with the places to mark.
struct TaskSearchHit {
    KWTaskListItemModel row;
    QList<TextMark> titleMarks;
    QString excerpt; ///< of the contents around the first place in it, on one line; empty for none
    QList<TextMark> excerptMarks;
};

/// Finds tasks while a person types. Deleted tasks and those in the trash are not found; closed ones and
/// those in archived lists are.
class TaskSearch {
public:
    /// Of the latest few hundred tasks that fit: open ones first, those with the words in the title before
    /// those with them in the contents, then the latest made. Nothing fits a text without words.
    static Result<QList<TaskSearchHit>> find(const TaskSearchRequest &request, const CXClock &clock,
                                             Connection &connection);
};
