#include "capture/PriorityLabels.h"

#include "model/settings/KWLocalizedString.h"

PriorityLabels::PriorityLabels()
    : m_labels{KWLocalizedString("priority_High"), KWLocalizedString("priority_Medium"),
               KWLocalizedString("priority_Low"), KWLocalizedString("priority_None")}
{
}

std::optional<KWTaskPriority> PriorityLabels::priorityLabelled(QStringView keyword) const
{
    for (std::size_t i = 0; i < m_labels.size(); ++i)
        if (keyword.compare(m_labels[i], Qt::CaseInsensitive) == 0) return KWTaskPriorities[i];
    return std::nullopt;
}
