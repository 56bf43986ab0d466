#pragma once

#include <QString>

class CXTimeZone;
class QLocale;
struct SummaryContent;

/// "Monday 16 November – Sunday 22 November 2026", or the one day.
QString summaryTitle(const SummaryContent &content, const QLocale &locale);

/// The summary as Markdown with task lists: the title, the tasks in their groups, focus, habits. What a
/// person wrote stands as text. Any thread.
QString summaryMarkdown(const SummaryContent &content, const CXTimeZone &zone, const QLocale &locale);
