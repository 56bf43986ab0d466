#pragma once

#include "lists/KWTaskCategory.h"

#include <QSet>

/// Puts rows of open tasks, as they are now, into sections that were cut before, and takes out what the tasks
/// `changed` had there, with their items. Answers false, and changes nothing, where more would move than
/// these rows: where sections come or go, rows have parents or children, are pinned or notes, or were put in
/// order by hand. Then the sections are to be cut anew.
bool putIntoSections(const QList<KWTaskListItemModel> &rows, const QSet<QString> &changed,
                     const ShownList &shown, QList<KWTaskCategory> &sections);
