#pragma once

#include "corvexkit/Result.h"

#include <QString>

class QTextDocument;

/// Markdown as other programs take it. HTML inside it is text, and nothing is fetched. Needs a
/// QGuiApplication, on any platform. Any thread.
namespace SummaryDocument {

/// What stands in the body of a page. Items of task lists have the class "checked" or "unchecked".
QString htmlOfMarkdown(const QString &markdown);
/// A page for programs that know no task lists: "☑" or "☐" stands before the text of their items, in the
/// document too.
QString htmlWithTaskSigns(QTextDocument &document);
/// A whole page of its own, in UTF-8, with these signs.
QString htmlPage(const QString &title, const QString &markdown);
/// A4 pages. Writes the whole file or leaves the one before; the sentence says why it could not be written.
Result<void> writePdf(const QString &title, const QString &markdown, const QString &file);

} // namespace SummaryDocument
