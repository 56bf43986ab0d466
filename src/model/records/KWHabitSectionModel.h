#pragma once

#include "model/records/KWSynchronizableFields.h"
#include "model/records/RecordKind.h"

/// A section of the habits, such as the morning's, as a plain value.
struct KWHabitSectionModel : KWSynchronizableFields {
    static constexpr RecordKind recordKind = RecordKind::HabitSection;
    static constexpr const char *tableName = "habitSections";

    QString name;

    bool operator==(const KWHabitSectionModel &) const = default;
};

template <>
inline constexpr auto recordFields<KWHabitSectionModel> = synchronized(field("name",
                                                                             &KWHabitSectionModel::name));
