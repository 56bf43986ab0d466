#pragma once

#include "model/store/KWTaskListItemModel.h"

#include <QList>

class ObjectContext;

/// The rows of the user's habits that are wanted today, done ones too, in their manual order; none where the
/// account does not show habits in Today. One that was said to be unachieved is an abandoned row.
QList<KWTaskListItemModel> readHabitRows(const QString &userID, ObjectContext &context);
