#pragma once

#include <QByteArray>
#include <QString>

/// Holds JSON text against docs/schemas/NAME.json: where it does not fit, and why; empty when it does. Of
/// JSON Schema it knows what is used there: type, enum, required, properties, items and $ref to another file;
/// any other keyword ends the program with a message. A key that the schema does not name does not fit.
QString misfitOf(const QString &json, const QString &schemaName);
