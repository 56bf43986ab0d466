#include "model/records/KWPomoSettings.h"

#include "model/store/ObjectContext.h"

bool KWPomoSettings::isFocusEnabled(const QString &userID, ObjectContext &context)
{
    const KWPomoSettings *settings = context.find<KWPomoSettings>(userID);
    return !settings || settings->isDeleted() || (*settings)->isPomoEnabled;
}
