#pragma once

#include "corvexkit/Result.h"

#include <QString>

/// Markdown as other programs take it. HTML inside it is text, and nothing is fetched. Needs a
/// QGuiApplication, on any platform. Main thread.
namespace SummaryDocument {

/// What stands in the body of a page.
QString htmlOfMarkdown(const QString &markdown);
/// A whole page of its own, in UTF-8.
QString htmlPage(const QString &title, const QString &markdown);
/// A4 pages. Writes the whole file or leaves the one before; the sentence says why it could not be written.
Result<void> writePdf(const QString &title, const QString &markdown, const QString &file);

} // namespace SummaryDocument
