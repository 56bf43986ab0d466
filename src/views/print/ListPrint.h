#pragma once

#include <memory>

class QString;
class QTextDocument;
class QWidget;
class TaskListModel;

/// A list on paper: its title, its sections, and a line for each task with an empty or ticked box and its
/// date, below its parent. Tasks in what is folded are left out, as on the screen.
namespace ListPrint {

std::unique_ptr<QTextDocument> document(const QString &title, const TaskListModel &list);

/// Asks for a printer and prints.
void run(const QTextDocument &document, const QString &title, QWidget &window);

} // namespace ListPrint
