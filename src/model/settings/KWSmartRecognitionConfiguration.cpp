#include "model/settings/KWSmartRecognitionConfiguration.h"

#include "model/events/KWNotificationCenter.h"
#include "model/events/NotificationNames.h"
#include "model/settings/KWUserDefaults.h"

KWSmartRecognitionConfiguration KWSmartRecognitionConfiguration::ofUser(const QString &userID,
                                                                        KWUserDefaults &defaults)
{
    if (!defaults.contains(Settings::recognitionEnablesDate, userID)) {
        const KWSmartRecognitionConfiguration fresh;
        KWSmartRecognitionConfiguration carried;
        carried.dateEnabled = defaults.valueOr(Settings::olderDateParsing, fresh.dateEnabled);
        carried.removesDate = defaults.valueOr(Settings::olderDateParsingType, fresh.removesDate);
        carried.removesTag = defaults.valueOr(Settings::olderTagParsingType, fresh.removesTag);
        carried.write(userID, defaults);
        return carried;
    }
    return {.dateEnabled = defaults.value(Settings::recognitionEnablesDate, userID),
            .removesDate = defaults.value(Settings::recognitionRemovesDate, userID),
            .removesTag = defaults.value(Settings::recognitionRemovesTag, userID)};
}

void KWSmartRecognitionConfiguration::save(const QString &userID, KWUserDefaults &defaults,
                                           KWNotificationCenter &center) const
{
    write(userID, defaults);
    center.post(KWSmartRecognitionConfigurationDidChangeNotification);
}

void KWSmartRecognitionConfiguration::write(const QString &userID, KWUserDefaults &defaults) const
{
    defaults.set(Settings::recognitionEnablesDate, dateEnabled, userID);
    defaults.set(Settings::recognitionRemovesDate, removesDate, userID);
    defaults.set(Settings::recognitionRemovesTag, removesTag, userID);
}
