#pragma once

#include <QStringList>

// A text of which every line is to become a task.

/// The lines that are not blank, without the mark of a list item at their start: "- ", "* ", "• ", "1. ",
/// "1) ", and the box of Markdown behind it: "[ ] ", "[x] ". A line may be empty without it.
QStringList taskLines(const QString &text);

/// Whether more than one line of the text is not blank.
bool holdsSeveralLines(const QString &text);
