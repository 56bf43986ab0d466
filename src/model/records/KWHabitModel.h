#pragma once

#include "model/records/KWSynchronizableFields.h"
#include "model/records/RecordKind.h"

#include <QStringList>

/// The section of habits that name none.
inline const QString K_HABIT_SECTION_ID_OTHERS = QStringLiteral("others");
/// The keys of the names of the sections that every account begins with.
inline constexpr const char *K_HABIT_SECTION_NAME_DEFAULT_MORNING = "Morning";
inline constexpr const char *K_HABIT_SECTION_NAME_DEFAULT_AFTERNOON = "Afternoon";
inline constexpr const char *K_HABIT_SECTION_NAME_DEFAULT_NIGHT = "Night";

/// A habit as a plain value.
struct KWHabitModel : KWSynchronizableFields {
    static constexpr RecordKind recordKind = RecordKind::Habit;
    static constexpr const char *tableName = "habits";

    QString name;
    QString iconRes;
    QString color;           ///< "#rrggbb", empty for none
    bool isRealType = false; ///< an amount is entered; else the day is done or not
    double goal = 1;         ///< target of a day
    double step = 1;         ///< amount of one check
    QString unit;
    QString sectionID = K_HABIT_SECTION_ID_OTHERS;
    QString repeatRule = QStringLiteral("RRULE:FREQ=DAILY;INTERVAL=1");
    int startStamp = 0;    ///< the day from which every so many days are counted, yyyymmdd; 0: when created
    QStringList reminders; ///< times of the day, "HH:mm"
    std::optional<Instant> remindTime; ///< the next alert, worked out whenever what it depends on is saved
    std::optional<Instant> snoozedRemindDate;
    bool isArchived = false;
    int currentStreak = 0;
    int longestStreak = 0;

    bool operator==(const KWHabitModel &) const = default;
};

template <>
inline constexpr auto recordFields<KWHabitModel> = synchronized(
    field("name", &KWHabitModel::name), field("iconRes", &KWHabitModel::iconRes),
    field("color", &KWHabitModel::color), field("isRealType", &KWHabitModel::isRealType),
    field("goal", &KWHabitModel::goal), field("step", &KWHabitModel::step),
    field("unit", &KWHabitModel::unit), field("sectionID", &KWHabitModel::sectionID, Json{"sectionId"}),
    field("repeatRule", &KWHabitModel::repeatRule), field("startStamp", &KWHabitModel::startStamp),
    field("reminders", &KWHabitModel::reminders),
    field("remindTime", &KWHabitModel::remindTime, Change::None),
    field("snoozedRemindDate", &KWHabitModel::snoozedRemindDate),
    field("isArchived", &KWHabitModel::isArchived), field("currentStreak", &KWHabitModel::currentStreak),
    field("longestStreak", &KWHabitModel::longestStreak));
