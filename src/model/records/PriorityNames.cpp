#include "model/records/PriorityNames.h"

#include "model/settings/KWLocalizedString.h"

using namespace Qt::StringLiterals;

QString displayName(KWTaskPriority priority)
{
    switch (priority) {
    case KWTaskPriorityHigh:
        return KWLocalizedString("priority_High");
    case KWTaskPriorityMedium:
        return KWLocalizedString("priority_Medium");
    case KWTaskPriorityLow:
        return KWLocalizedString("priority_Low");
    default:
        return KWLocalizedString("priority_None");
    }
}

QString iconName(KWTaskPriority priority)
{
    return priority == KWTaskPriorityNone ? u"flag-none"_s : u"flag"_s;
}
