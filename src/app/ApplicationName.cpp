#include "app/ApplicationName.h"

#include "model/settings/KWLocalizedString.h"

QString localizedApplicationName() { return KWLocalizedString("Orvane"); }

QString textWithApplicationName(const char *key)
{
    return KWLocalizedString(key).replace(QLatin1StringView{"%@"}, localizedApplicationName());
}
