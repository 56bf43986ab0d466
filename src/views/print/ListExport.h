#pragma once

#include "corvexkit/Result.h"

class QString;
class QWidget;
class TaskListModel;

/// The shown list as a file: a PDF, or Markdown where the file's name ends in ".md".
namespace ListExport {

/// Writes the whole file or leaves the one before; the sentence says why it could not be written.
Result<void> write(const QString &file, const QString &title, const TaskListModel &list);

/// Asks for a place and writes; answers the file, empty when the person has cancelled.
Result<QString> run(const QString &title, const TaskListModel &list, QWidget &window);

} // namespace ListExport
