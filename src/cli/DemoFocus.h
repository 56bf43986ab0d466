#pragma once

#include <QString>

class ObjectContext;

/// Writes the focus sessions of the demo account into the context that its tasks and habits were written to:
/// three weeks of them, up to the moment of its clock.
void writeDemoFocus(const QString &userID, ObjectContext &context);
