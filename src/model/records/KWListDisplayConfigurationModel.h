#pragma once

#include "model/records/KWSynchronizableFields.h"
#include "model/records/RecordKind.h"

#include <QStringList>

/// How an account shows one list, as a plain value.
struct KWListDisplayConfigurationModel : KWSynchronizableFields {
    static constexpr RecordKind recordKind = RecordKind::ListDisplayConfiguration;
    static constexpr const char *tableName = "listDisplayConfigurations";

    QString listID; ///< the encoded list selection
    bool showsCompleted = true;
    bool showsDetails = false;
    bool showsEvents = true;     ///< of subscribed calendars, in lists of days
    QStringList collapsedGroups; ///< ids of the folded sections

    bool operator==(const KWListDisplayConfigurationModel &) const = default;
};

template <>
inline constexpr auto recordFields<KWListDisplayConfigurationModel> =
    synchronized(field("listID", &KWListDisplayConfigurationModel::listID, Json{"listId"}),
                 field("showsCompleted", &KWListDisplayConfigurationModel::showsCompleted),
                 field("showsDetails", &KWListDisplayConfigurationModel::showsDetails),
                 field("showsEvents", &KWListDisplayConfigurationModel::showsEvents),
                 field("collapsedGroups", &KWListDisplayConfigurationModel::collapsedGroups));
