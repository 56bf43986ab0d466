#pragma once

#include <QString>

class ObjectContext;

/// Writes the sections, habits and days of the demo account into the context, up to the day of its clock.
void writeDemoHabits(const QString &userID, ObjectContext &context);
