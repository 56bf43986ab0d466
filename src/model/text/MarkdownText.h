#pragma once

#include <QString>

/// Markdown as CommonMark has it, with the task lists and struck texts of GitHub's flavour. Any thread.
namespace MarkdownText {

/// A text that stands in Markdown as it was typed.
QString escaped(const QString &text);
/// A line for a task: "- [x] Title", abandoned ones struck. `title` is text.
QString taskItem(const QString &title, bool isClosed, bool isAbandoned);

} // namespace MarkdownText
