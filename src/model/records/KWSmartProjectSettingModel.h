#pragma once

#include "model/records/KWSynchronizableFields.h"
#include "model/records/RecordKind.h"

/// How an account shows one smart list, as a plain value. A smart list without one is shown as
/// KWSmartProject says.
struct KWSmartProjectSettingModel : KWSynchronizableFields {
    static constexpr RecordKind recordKind = RecordKind::SmartProjectSetting;
    static constexpr const char *tableName = "smartProjectSettings";

    QString smartProjectID;
    KWTaskSortType sortType = KWTaskSortTypeDate;
    KWSmartProjectVisibility visibility = KWSmartProjectVisibilityShown;

    bool operator==(const KWSmartProjectSettingModel &) const = default;
};

template <>
inline constexpr auto recordFields<KWSmartProjectSettingModel> =
    synchronized(field("smartProjectID", &KWSmartProjectSettingModel::smartProjectID, Json{"smartProjectId"}),
                 field("sortType", &KWSmartProjectSettingModel::sortType),
                 field("visibility", &KWSmartProjectSettingModel::visibility));
