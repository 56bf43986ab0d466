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

/// How many tasks of today and before there are at most, and how many others.
inline constexpr int mostTargetChoices = 100;

/// The open tasks and habits of the user: the tasks of today and before, the habits, then all other tasks, by
/// their dates. No notes, and nothing of archived lists. Of what was typed, if anything, every word has to
/// begin one of the title. On the thread of the context.
QList<FocusTargetChoice> focusTargetChoices(const QString &userID, const QString &typed,
                                            ObjectContext &context);
