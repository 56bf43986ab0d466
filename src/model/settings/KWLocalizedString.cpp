#include "model/settings/KWLocalizedString.h"

#include <QCoreApplication>

#include <string_view>
#include <utility>

namespace {

// Keys that are not themselves the English text.
constexpr std::pair<std::string_view, const char *> englishTexts[] = {
    {"priority_High", "High"},
    {"priority_Medium", "Medium"},
    {"priority_Low", "Low"},
    {"priority_None", "None"},
    {"by_created_time", "By Created Time"},
    {"by_modified_time", "By Modified Time"},
    {"Habit_Freq_Daily", "Daily"},
    {"Habit_Freq_Weekly", "Weekly"},
    {"Habit_Freq_Repeat", "Interval"},
    {"auto_You've got a Pomo. Time to relax.", "You've got a Pomo. Your break begins now."},
    {"POMO_RELAX", "Relax"},
    {"POMO_START", "Start"},
    {"belong", "Yes, It Does"},
    {"not_belong", "No, It Does Not"},
    {"Crash Protection Title", "Orvane closed unexpectedly several times"},
    {"Crash Protection Message",
     "The last starts each ended within five seconds. Your tasks are safe in the data folder. You can start "
     "once more, go back to a backup, or set everything aside and start empty."},
};

} // namespace

QString KWLocalizedString(const char *key)
{
    const QString translated = QCoreApplication::translate("Orvane", key);
    if (translated != QLatin1StringView{key}) return translated;
    for (const auto &[name, text] : englishTexts)
        if (name == key) return QString::fromUtf8(text);
    return translated;
}
