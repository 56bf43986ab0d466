#pragma once

#include "capture/NewTaskContext.h"
#include "corvexkit/Result.h"
#include "model/records/KWListIdentifier.h"
#include "model/store/KWTaskListItemModel.h"

#include <QList>

class OrvaneKit;

/// The list that a person calls by that name on the command line: one of their own, by its id as well,
/// "#tag", or a smart list by its displayed name. An error says that there is none.
Result<KWListIdentifier> listNamed(const QString &name, OrvaneKit &kit);

/// What the list of that name implies for tasks made in it; nothing for an empty name. An error says that
/// there is none, or that it takes no tasks.
Result<NewTaskContext> newTaskContextOfListNamed(const QString &name, OrvaneKit &kit);

/// The tasks that the list of that name shows, of All for an empty name; without closed ones, unless the list
/// is one of them; the first ones up to a limit that is not negative.
Result<QList<KWTaskListItemModel>> tasksOfListNamed(const QString &name, OrvaneKit &kit,
                                                    std::int64_t limit = -1);
