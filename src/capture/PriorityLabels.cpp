#include "capture/PriorityLabels.h"

#include "model/settings/KWLocalizedString.h"

#include <algorithm>

namespace {

using Labels = std::array<QStringView, KWTaskPriorities.size()>;

// English, Chinese in simplified and traditional characters.
constexpr std::array<Labels, 3> everyLanguage{{
    {u"High", u"Medium", u"Low", u"None"},
    {u"高", u"中", u"低", u"无"},
    {u"高", u"中", u"低", u"無"},
}};

template <typename Texts>
std::optional<KWTaskPriority> priorityOf(const Texts &labels, QStringView keyword)
{
    for (std::size_t i = 0; i < labels.size(); ++i)
        if (keyword.compare(labels[i], Qt::CaseInsensitive) == 0) return KWTaskPriorities[i];
    return std::nullopt;
}

} // namespace

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
    std::optional<KWTaskPriority> priority = priorityOf(m_labels, keyword);
    for (auto labels = everyLanguage.begin(); !priority && labels != everyLanguage.end(); ++labels)
        priority = priorityOf(*labels, keyword);
    return priority;
}
