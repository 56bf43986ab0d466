#pragma once

class KWNotificationCenter;
class KWUserDefaults;
class QString;

/// What is recognised in typed titles, and what of it is cut from the saved title.
struct KWSmartRecognitionConfiguration {
    bool dateEnabled = true;
    bool removesDate = true;
    bool removesTag = true;

    /// The user's configuration. The first time, older preference keys are carried over into it.
    static KWSmartRecognitionConfiguration ofUser(const QString &userID, KWUserDefaults &defaults);
    /// Posts "KWSmartRecognitionConfigurationDidChangeNotification".
    void save(const QString &userID, KWUserDefaults &defaults, KWNotificationCenter &center) const;

    bool operator==(const KWSmartRecognitionConfiguration &) const = default;

private:
    void write(const QString &userID, KWUserDefaults &defaults) const;
};
