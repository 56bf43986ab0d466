#include "model/records/SortOrderContext.h"

#include <QLatin1StringView>

#include <array>
#include <utility>

QString contextID(const SortOrderContext &context)
{
    const std::array<std::pair<QLatin1StringView, QString>, 6> parts{{
        {QLatin1StringView{"project:"}, context.projectID},
        {QLatin1StringView{"group:"}, context.groupID},
        {QLatin1StringView{"filter:"}, context.filterID},
        {QLatin1StringView{"tag:"}, context.tagName},
        {QLatin1StringView{"smart:"}, context.smartList},
        {QLatin1StringView{"quadrant:"}, context.quadrant},
    }};
    for (const auto &[kind, id] : parts)
        if (!id.isEmpty()) return kind + id;
    return {};
}
