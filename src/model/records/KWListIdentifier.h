#pragma once

#include <QString>

#include <optional>

/// What kind of thing a list selection names. The raw values are stored.
enum class KWListIdentifierType {
    SmartProject = 0,
    Project = 1,
    Group = 2,
    Tag = 4,
    Filter = 5,
    Calendar = 10, ///< a subscribed one: its events
    View = 20,
};

/// A list selection: what the middle pane shows. It encodes to text for preferences.
struct KWListIdentifier {
    QString entityID;
    KWListIdentifierType type = KWListIdentifierType::SmartProject;

    static KWListIdentifier smartProject(const QString &smartProjectID);
    static KWListIdentifier project(const QString &projectID);
    static KWListIdentifier group(const QString &groupID);
    static KWListIdentifier tag(const QString &tagName);
    static KWListIdentifier filter(const QString &filterID);
    static KWListIdentifier calendar(const QString &subscriptionID);

    static KWListIdentifier todayProject();
    static KWListIdentifier monthCalendarViewID();

    /// "type:entityID"; `userDefaultDecode` reads it back and answers nothing for any other text.
    QString userDefaultEncode() const;
    static std::optional<KWListIdentifier> userDefaultDecode(const QString &text);

    bool operator==(const KWListIdentifier &) const = default;
};
