#pragma once

#include "views/filtereditor/ChoicesButton.h"

class ObjectContext;

/// What conditions can be about, in the order of the sidebar.
struct FilterChoices {
    QList<ChoicesButton::Choice> lists; ///< the open ones
    QList<ChoicesButton::Choice> folders;
    QList<ChoicesButton::Choice> tags;   ///< by name
    QList<ChoicesButton::Choice> people; ///< members of shared lists, by their number

    static FilterChoices read(const QString &userID, ObjectContext &context);
};
