#pragma once

#include "model/records/KWConstants.h"

#include <QFlags>
#include <QSet>
#include <QString>

/// What of a title is recognised, one bit each. `DateToken` is a date marked with "*", `Date` one that
/// stands for itself.
enum class ParseOption { Tag = 1, Priority = 2, List = 4, Assignee = 8, DateToken = 16, Date = 32 };
Q_DECLARE_FLAGS(ParseOptions, ParseOption)
Q_DECLARE_OPERATORS_FOR_FLAGS(ParseOptions)

/// What an add field knows beside its text: what was switched off, for good or by undoing a recognition, what
/// was chosen from a completion, and where the task goes.
struct RecognitionOptions {
    ParseOptions parseOption{63};
    bool donotParseDate = false;
    bool donotParseAssignee = false;
    QSet<QString> blockedProjects{}; ///< ids of lists; names of lists that would have to be made
    QSet<KWTaskPriority> blockedPriorities{};

    QString chosenProject{};    ///< id of the list that is meant where several have its name
    QString chosenTeamworker{}; ///< server id of the person, likewise

    QString projectID{};          ///< of the list the task goes to when the title names none
    bool isProjectManual = false; ///< it goes there in any case
};
