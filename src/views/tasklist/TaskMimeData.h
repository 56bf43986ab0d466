#pragma once

#include <QStringList>

class QMimeData;

/// Tasks on their way by drag and drop, as ids.
namespace TaskMimeData {

/// Newline-joined ids, UTF-8.
inline const QString type = QStringLiteral("application/x-orvane-tasks");

/// Empty where the data holds no tasks.
QStringList idsIn(const QMimeData &data);
/// With the titles as plain text for other programs. The caller owns it.
QMimeData *make(const QStringList &taskIDs, const QStringList &titles);

} // namespace TaskMimeData
