#pragma once

#include "capture/KWReminderModelFromNaturalLanguage.h"
#include "capture/RecognizedPiece.h"

#include <QStringList>

/// The list that a title names.
struct RecognizedList {
    QString id; ///< empty: the list is made when the task is saved
    QString name;

    bool isNew() const { return id.isEmpty(); }
    bool operator==(const RecognizedList &) const = default;
};

/// The member of the list that a title names.
struct RecognizedPerson {
    std::int64_t userServerID = KWTaskAssignedToNobody;
    QString name;

    bool operator==(const RecognizedPerson &) const = default;
};

/// What a typed title says.
struct TitleRecognition {
    QString title;    ///< one line, without the pieces that are cut
    QStringList tags; ///< as typed, without marks, each name once
    std::optional<KWTaskPriority> priority;
    std::optional<RecognizedList> parsedProjectResult;
    std::optional<RecognizedPerson> assignedTeamworker;
    /// Where a phrase touches a tag, its entity has grown over both.
    KWReminderModelFromNaturalLanguage date;
    QList<RecognizedPiece> pieces; ///< disjoint, in text order
};
