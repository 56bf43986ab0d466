#pragma once

#include "views/tasklist/TaskDateText.h"
#include "views/theme/Theme.h"

/// The colour of a date in words; `plain` where it is neither today nor overdue.
inline QColor taskDateColor(TaskDateText::Tone tone, const QColor &plain)
{
    switch (tone) {
    case TaskDateText::Tone::Today:
        return Theme::current().accentText;
    case TaskDateText::Tone::Overdue:
        return Theme::current().overdueText;
    case TaskDateText::Tone::Plain:
        break;
    }
    return plain;
}
