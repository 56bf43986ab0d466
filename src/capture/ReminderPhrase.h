#pragma once

#include <QStringView>

/// Whether the text itself asks for a reminder: "remind me", in any case, or "提醒我".
inline bool namesReminder(QStringView text)
{
    return text.contains(QLatin1StringView{"remind me"}, Qt::CaseInsensitive) || text.contains(u"提醒我");
}
