#pragma once

#include <QString>

/// Markdown as CommonMark has it, with the task lists and struck texts of GitHub's flavour. Any thread.
namespace MarkdownText {

/// A regular expression for the addresses that a text holds: of the web, of a mail, of a task here.
const QString &addressPattern();
/// A text that stands in Markdown as it was typed. Its addresses are links, in angle brackets.
QString escaped(const QString &text);
/// A line for a task: "- [x] Title", abandoned ones struck. `title` is text.
QString taskItem(const QString &title, bool isClosed, bool isAbandoned);

} // namespace MarkdownText
