#pragma once

#include "corvexkit/Result.h"

#include <QByteArray>
#include <QSettings>
#include <QString>
#include <QVariant>

/// The standard defaults belong to this program; the group defaults are shared with its helpers.
enum class DefaultsScope { Standard, Group };

/// A preference: its key, where it is kept and what it is when nothing was set. A preference of one user
/// is read with the user's id, which is appended to the key.
template <class Value>
struct Setting {
    const char *key;
    DefaultsScope scope;
    Value fallback;
};

/// Every preference, written down once.
namespace Settings {

inline constexpr Setting<int> crashCount{"org.orvane.crash.cout", DefaultsScope::Standard, 0};
inline const Setting<QString> lastLocalTimeZone{"last_local_time_zone_identifier", DefaultsScope::Group, {}};
/// The zone that dates still stand in because adapting them could not be saved.
inline const Setting<QString> zoneOfUnadaptedDates{"zone_of_unadapted_dates", DefaultsScope::Group, {}};
inline constexpr Setting<bool> isSwitchedTimeZoneBeforeLaunch{"is_switched_time_zone_before_launch",
                                                              DefaultsScope::Group, false};
/// Waits of hours pass in minutes, for whoever works on the program.
inline constexpr Setting<bool> developerAcceleration{"developer_acceleration", DefaultsScope::Standard,
                                                     false};

/// Of a user: the list selection, encoded.
inline const Setting<QString> selectedNode{"selected_node_id_in_proejct_list_of_", DefaultsScope::Group, {}};
/// Of a user: the ids of the folded nodes of the sidebar.
inline const Setting<QStringList> foldedNodes{"folded_nodes_of_", DefaultsScope::Group, {}};

/// Of a user: whether the tasks without a date stand beside the calendar.
inline constexpr Setting<bool> calendarTray{"calendar_tray_of_", DefaultsScope::Standard, false};
/// Of a user: the ids of the folded sections of the habits.
inline const Setting<QStringList> foldedHabitSections{"folded_habit_sections_of_", DefaultsScope::Group, {}};

/// 1 for the stopwatch, anything else for Pomos.
inline constexpr Setting<int> currentFocusType{"KWCurrentFocusType", DefaultsScope::Group, 0};
/// Lengths of the settings of focus are seconds, for trying them out.
inline constexpr Setting<bool> pomoSettingsTimeUnitIsSecond{"pomoSettingsTimeUnitIsSecond",
                                                            DefaultsScope::Standard, false};
/// The Pomo that runs, encoded.
inline const Setting<QString> runningPomo{"running_pomo", DefaultsScope::Group, {}};
/// Sessions of focus that are over or were left by an earlier run, and are not in the store; encoded.
inline const Setting<QStringList> focusSessionsNotStored{
    "focus_sessions_not_stored", DefaultsScope::Group, {}};
/// What stood in the two above and cannot be read.
inline const Setting<QStringList> unreadableFocusSessions{
    "unreadable_focus_sessions", DefaultsScope::Group, {}};

/// Of a user: what the last summary was of, as SummaryChoice writes it.
inline const Setting<QString> summaryChoice{"summary_choice_of_", DefaultsScope::Standard, {}};

/// Of a user: what the command palette has opened, the latest first.
inline const Setting<QStringList> paletteUse{"palette_use_of_", DefaultsScope::Standard, {}};

/// Of a user: what was typed into the window for a new task and is not saved yet, the latest last.
inline const Setting<QStringList> quickAddDrafts{"quick_add_drafts_of_", DefaultsScope::Standard, {}};

inline constexpr Setting<bool> recognitionEnablesDate{"smart_recognition_date_enabled_of_",
                                                      DefaultsScope::Standard, true};
inline constexpr Setting<bool> recognitionRemovesDate{"smart_recognition_removes_date_of_",
                                                      DefaultsScope::Standard, true};
inline constexpr Setting<bool> recognitionRemovesTag{"smart_recognition_removes_tag_of_",
                                                     DefaultsScope::Standard, true};
// Where older versions kept the three above, for all users.
inline constexpr Setting<bool> olderDateParsing{"KWSmartDateParsingKey", DefaultsScope::Standard, true};
inline constexpr Setting<bool> olderDateParsingType{"KWSmartDateParsingTypeKey", DefaultsScope::Standard,
                                                    true};
inline constexpr Setting<bool> olderTagParsingType{"KWTagParsingTypeKey", DefaultsScope::Standard, true};

/// Whether it was shown once how a recognised date is taken back.
inline constexpr Setting<bool> didShowDateParsingTips{"didShowDateParsingTips", DefaultsScope::Standard,
                                                      false};

inline constexpr Setting<int> newTaskPriority{"new_task_priority", DefaultsScope::Standard, 0};
/// Days from today; below zero: no date.
inline constexpr Setting<int> newTaskDateOffset{"new_task_date_offset", DefaultsScope::Standard, -1};
/// "top" or "bottom" of the list.
inline const Setting<QString> newTaskPosition{"new_task_position", DefaultsScope::Standard,
                                              QStringLiteral("top")};

inline constexpr Setting<bool> notificationsEnabled{"user_notifications_enabled", DefaultsScope::Standard,
                                                    true};
inline constexpr Setting<bool> notificationSound{"user_notifications_sound", DefaultsScope::Standard, true};

/// What the badge on the application's icon counts: the number of a KWBadgeType.
inline constexpr Setting<int> badgeTypeShownInDock{"badgeTypeShownInDock", DefaultsScope::Standard, 2};

/// Of a slot: the keys of a command of the main menu, as portable text; empty for none.
inline const Setting<QString> keyboardShortcut{"keyboard_shortcut_", DefaultsScope::Standard, {}};

/// The backup that takes the place of the store at the next start.
inline const Setting<QString> restoreAtStart{"restore_at_start", DefaultsScope::Standard, {}};

/// "system", "24" or "12".
inline const Setting<QString> clockFormat{"clock_format", DefaultsScope::Standard, QStringLiteral("system")};
/// "system", "light" or "dark".
inline const Setting<QString> theme{"theme", DefaultsScope::Standard, QStringLiteral("system")};
/// How large the desktop last said that text is, so that the next start begins with it; 1 is the usual size.
inline constexpr Setting<double> desktopTextScale{"desktop_text_scale", DefaultsScope::Standard, 1};
inline const Setting<QByteArray> mainWindowGeometry{"main_window_geometry", DefaultsScope::Standard, {}};
inline const Setting<QByteArray> mainWindowSplitter{"main_window_splitter", DefaultsScope::Standard, {}};
/// Where the small window of focus was left.
inline const Setting<QByteArray> focusWindowGeometry{"focus_window_geometry", DefaultsScope::Standard, {}};
/// As it was last chosen by hand, in pixels at a text size of 100 %; 0 for never.
inline constexpr Setting<int> sidebarWidth{"sidebar_width", DefaultsScope::Standard, 0};

} // namespace Settings

/// The preferences on disk: two INI files, standard.ini and group.ini. Values are written back by
/// themselves a moment later; `synchronise` does so at once. Main thread only.
class KWUserDefaults {
public:
    explicit KWUserDefaults(const QString &folder);

    template <class Value>
    Value value(const Setting<Value> &setting, const QString &user = {}) const
    {
        return valueOr(setting, setting.fallback, user);
    }
    template <class Value>
    Value valueOr(const Setting<Value> &setting, const Value &fallback, const QString &user = {}) const
    {
        QVariant stored = file(setting.scope).value(keyOf(setting, user));
        // A text that somebody wrote into the file need not be a number.
        return stored.convert(QMetaType::fromType<Value>()) ? stored.value<Value>() : fallback;
    }
    template <class Value>
    bool contains(const Setting<Value> &setting, const QString &user = {}) const
    {
        return file(setting.scope).contains(keyOf(setting, user));
    }
    template <class Value>
    void set(const Setting<Value> &setting, const Value &value, const QString &user = {})
    {
        // A file that changes is written and flushed, which costs a start a millisecond.
        if (contains(setting, user) && this->value(setting, user) == value) return;
        file(setting.scope).setValue(keyOf(setting, user), QVariant::fromValue(value));
    }
    template <class Value>
    void remove(const Setting<Value> &setting, const QString &user = {})
    {
        file(setting.scope).remove(keyOf(setting, user));
    }

    /// Writes to disk now, and takes what another process has written.
    void synchronise();
    /// The same; the error says which file could not be written.
    Result<void> save();

private:
    template <class Value>
    static QString keyOf(const Setting<Value> &setting, const QString &user)
    {
        return QLatin1StringView{setting.key} + user;
    }
    QSettings &file(DefaultsScope scope) const
    {
        return scope == DefaultsScope::Standard ? m_standard : m_group;
    }

    mutable QSettings m_standard;
    mutable QSettings m_group;
};
