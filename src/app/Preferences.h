#pragma once

#include "corvexkit/Result.h"
#include "corvexkit/time/Instant.h"
#include "model/records/KWConstants.h"
#include "model/records/KWUserSettingsModel.h"
#include "model/settings/KWSmartRecognitionConfiguration.h"
#include "model/settings/KWUserDefaults.h"

#include <QList>

#include <functional>
#include <optional>

class KWAccountManager;
class KWCoreDataManager;
class KWNotificationCenter;
class KWSmartProject;

/// The one place where the preferences window reads and writes: the settings of the account are in its
/// records, those of the program in the defaults. Every change is saved at once and announced. Main
/// thread.
class Preferences {
public:
    Preferences(KWCoreDataManager &manager, KWAccountManager &account, KWUserDefaults &defaults,
                KWNotificationCenter &center);

    // Of the program.
    template <class Value>
    Value value(const Setting<Value> &setting) const
    {
        return m_defaults.value(setting);
    }
    template <class Value>
    Result<void> set(const Setting<Value> &setting, const std::type_identity_t<Value> &value)
    {
        const Value before = m_defaults.value(setting);
        m_defaults.set(setting, value);
        const Result<void> saved = m_defaults.save();
        if (saved)
            didSetDefault(setting.key);
        else
            m_defaults.set(setting, before);
        return saved;
    }

    // Of the account.
    const KWUserSettingsModel &settings() const;
    template <class Value>
    Result<void> set(Value KWUserSettingsModel::*field, const std::type_identity_t<Value> &value)
    {
        return editSettings([&](KWUserSettingsModel &settings) { settings.*field = value; });
    }
    /// What is recognised in typed titles, and what of it is cut.
    KWSmartRecognitionConfiguration recognition() const;
    Result<void> set(bool KWSmartRecognitionConfiguration::*field, bool isOn);
    KWSmartProjectVisibility visibilityOf(const KWSmartProject &smart) const;
    Result<void> setVisibility(KWSmartProjectVisibility visibility, const KWSmartProject &smart);

    /// The lists to which new tasks may go, as id and name; the inbox first.
    struct NamedList {
        QString id;
        QString name;
    };
    QList<NamedList> listsForNewTasks() const;

private:
    Result<void> editSettings(const std::function<void(KWUserSettingsModel &)> &edit);
    void didSetDefault(const char *key);

    KWCoreDataManager &m_manager;
    KWAccountManager &m_account;
    KWUserDefaults &m_defaults;
    KWNotificationCenter &m_center;
};
