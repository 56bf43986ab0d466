#include "capture/NewTaskContextOfList.h"
#include "corvexkit/filter/CXSmartFilter.h"

#include <algorithm>

namespace {

using Condition = CXSmartFilterCondition;
using Demands = std::vector<Condition>;

bool areFitBy(std::optional<Day> day, const Demands &dates, const CXSmartFilterFrame &frame)
{
    CXFilteredItem item;
    if (day) item.startDate = frame.zone.startOfDay(*day);
    return std::ranges::all_of(dates, [&](const Condition &each) { return each.matches(item, frame); });
}

/// Takes from what a filter demands what is one thing and not a choice.
struct Preset {
    const CXSmartFilterFrame &frame;
    NewTaskContext context{};
    Demands dates{};
    std::vector<Day> days{}; // that are asked for

    void operator()(const Condition::Lists &lists)
    {
        if (lists.ids.size() == 1) context.presetList = lists.ids.first();
    }
    void operator()(const Condition::Tags &tags)
    {
        if (tags.names.size() == 1) context.presetTagNames.append(tags.names.first());
    }
    void operator()(const Condition::Priorities &priorities)
    {
        if (priorities.values.size() == 1) context.presetPriority = KWTaskPriority(priorities.values.first());
    }
    void operator()(const Condition::Assignees &assignees)
    {
        const bool isChoice = assignees.other || assignees.me + assignees.nobody + assignees.ids.size() != 1;
        if (isChoice) return;
        context.presetAssignee = assignees.me       ? frame.me
                                 : assignees.nobody ? KWTaskAssignedToNobody
                                                    : assignees.ids.first();
    }
    void operator()(const Condition::Dates &wanted)
    {
        for (const CXDateSpan &each : wanted.spans) {
            if (!each.isOfDays()) continue;
            const CXDayRange range = each.days(frame);
            const bool isOneDay = wanted.spans.size() == 1 && range.from && range.from == range.until;
            days.push_back(isOneDay ? *range.from : frame.today);
        }
    }
    // What else is asked makes no task fit.
    void operator()(const auto &) {}

    void takeDate()
    {
        const auto day =
            std::ranges::find_if(days, [this](Day each) { return areFitBy(each, dates, frame); });
        if (day != days.end()) context.presetDay = *day;
        context.presetsNoDate =
            days.empty() && areFitBy(std::nullopt, dates, frame) && !areFitBy(frame.today, dates, frame);
    }
};

} // namespace

NewTaskContext newTaskContextOf(const CXSmartFilter &filter, const CXSmartFilterFrame &frame)
{
    Preset preset{frame};
    for (const Condition &each : filter.condition().demands()) {
        if (std::holds_alternative<Condition::Dates>(each.question())) preset.dates.push_back(each);
        if (!each.isNegated()) std::visit(preset, each.question());
    }
    preset.takeDate();
    preset.context.isNotedFilter = filter.isNoteKind();
    return preset.context;
}
