#pragma once

#include "model/store/StoreChange.h"

#include <functional>
#include <memory>
#include <vector>

/// Tells which records a save inserted, changed or removed, by kind and id. The store's saves are
/// posted by themselves, once the main context shows them. Main thread only.
class KWEventBus {
public:
    using Handler = std::function<void(const StoreChange &)>;
    using Registration = std::shared_ptr<const void>;

    /// Registered until the answer is dropped or handed to `eb_unregister`.
    [[nodiscard]] Registration registerEventBus(Handler handler);
    static void eb_unregister(Registration &registration) { registration.reset(); }

    void post(const StoreChange &change);

private:
    std::vector<std::weak_ptr<Handler>> m_handlers;
};

void eb_postTasksDeleted(KWEventBus &bus, const QStringList &taskIDs);
void eb_postHabitUpdated(KWEventBus &bus, const QString &habitID);
void eb_postHabitsInserted(KWEventBus &bus, const QStringList &habitIDs);
/// `properties` are the names of the fields that changed.
void eb_postColumnUpdated(KWEventBus &bus, const QString &columnID, const QStringList &properties);
void eb_postColumnInserted(KWEventBus &bus, const QString &columnID);
