#pragma once

#include "corvexkit/time/CXTimeZone.h"

#include <QHash>
#include <QStringList>

/// The day on which a filter is asked, for whom, and what that person's tags are.
struct CXSmartFilterFrame {
    CXTimeZone zone;
    Day today;
    std::chrono::weekday firstWeekday = std::chrono::Sunday;
    std::int64_t me = 0;                     ///< the person who asks, as an assignee
    QHash<QString, QStringList> childTags{}; ///< the names below those of parent tags

    /// A tag stands for its child tags, too.
    QStringList withChildTags(QStringList names) const
    {
        for (qsizetype i = names.size(); i-- > 0;)
            names += childTags.value(names.at(i));
        return names;
    }

    bool operator==(const CXSmartFilterFrame &) const = default;
};
