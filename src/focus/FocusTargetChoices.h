#pragma once

#include "focus/FocusTarget.h"

#include <QList>

class ObjectContext;

/// Something to focus on, as it is called now.
struct FocusTargetChoice {
    FocusTarget target{};
    QString title{};
    QString color{}; ///< "#rrggbb" of the list or habit, empty for none

    bool operator==(const FocusTargetChoice &) const = default;
};

/// The target with its title and colour; without a title for nothing in particular and for what is gone.
FocusTargetChoice lookOf(const FocusTarget &target, ObjectContext &context);

/// The open tasks and habits of the user: the tasks of today and before, the habits, then all other tasks, by
/// their dates. No notes, and nothing of archived lists.
QList<FocusTargetChoice> focusTargetChoices(const QString &userID, ObjectContext &context);
