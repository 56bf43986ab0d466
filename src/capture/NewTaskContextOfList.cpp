#include "capture/NewTaskContextOfList.h"

#include "corvexkit/time/CXClock.h"
#include "model/records/KWSmartProject.h"

bool takesNewTasks(const KWListIdentifier &list)
{
    const KWSmartProject *smart = KWSmartProject::withIdentifier(list.entityID);
    return list.type != KWListIdentifierType::SmartProject ||
           (smart && (smart->isAll() || smart->isToday() || smart->isTomorrow() || smart->isNext7Days()));
}

NewTaskContext newTaskContextOf(const KWListIdentifier &list, const CXClock &clock)
{
    NewTaskContext context;
    switch (list.type) {
    case KWListIdentifierType::Project:
        context.presetList = list.entityID;
        break;
    case KWListIdentifierType::Tag:
        context.presetTags = {list.entityID};
        break;
    case KWListIdentifierType::SmartProject:
        if (list.entityID == KWSmartProject::today().identifier() ||
            list.entityID == KWSmartProject::next7days().identifier())
            context.presetDay = clock.today();
        else if (list.entityID == KWSmartProject::tomorrow().identifier())
            context.presetDay = clock.today() + std::chrono::days{1};
        break;
    case KWListIdentifierType::Group:
    case KWListIdentifierType::Filter:
    case KWListIdentifierType::View:
        break;
    }
    return context;
}
