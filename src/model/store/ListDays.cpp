#include "model/store/ListDays.h"

#include "model/records/KWSmartProject.h"

using std::chrono::days;

std::optional<ListDays> daysOfList(const KWListIdentifier &list, Day today, int calendarDays)
{
    if (list.type == KWListIdentifierType::Calendar) return ListDays{today, today + days{calendarDays}};
    if (list.type != KWListIdentifierType::SmartProject) return std::nullopt;
    const KWSmartProject *smart = KWSmartProject::withIdentifier(list.entityID);
    if (!smart || !KWSmartProject::isDateSensetiveSmartProjectID(list.entityID)) return std::nullopt;
    const Day first = today + days{smart->isTomorrow() ? 1 : 0};
    return ListDays{first, first + days{smart->isNext7Days() ? 7 : 1}};
}
