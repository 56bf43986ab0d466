#include "capture/PriorityLabels.h"

#include "model/settings/KWLocalizedString.h"

#include <algorithm>

PriorityLabels::PriorityLabels()
    : m_labels{KWLocalizedString("priority_High"), KWLocalizedString("priority_Medium"),
               KWLocalizedString("priority_Low"), KWLocalizedString("priority_None")}
{
}

const QString &PriorityLabels::labelOf(KWTaskPriority priority) const
{
    return m_labels[std::size_t(std::ranges::find(KWTaskPriorities, priority) - KWTaskPriorities.begin())];
}

std::optional<KWTaskPriority> PriorityLabels::priorityLabelled(QStringView keyword) const
{
    for (std::size_t i = 0; i < m_labels.size(); ++i)
        if (keyword.compare(m_labels[i], Qt::CaseInsensitive) == 0) return KWTaskPriorities[i];
    return std::nullopt;
}
