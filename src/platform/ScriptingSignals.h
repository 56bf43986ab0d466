#pragma once

#include "corvexkit/time/CXClock.h"
#include "model/events/KWEventBus.h"
#include "model/events/KWNotificationCenter.h"

#include <QSet>

#include <functional>
#include <vector>

class OrvaneKit;

/// Tells other programs what has changed, joined over a short while. Main thread.
class ScriptingSignals {
public:
    static constexpr std::chrono::milliseconds joinedOver{200};
    /// Where more tasks have changed, any may have.
    static constexpr qsizetype mostIDs = 500;

    struct Told {
        /// No ids: any task may have changed.
        std::function<void(const QStringList &ids)> tasksChanged;
        std::function<void()> listsChanged;
    };
    ScriptingSignals(OrvaneKit &kit, CXClock &clock, Told told);

private:
    void take(const StoreChange &change);
    void takeAnything();
    void tellLater();
    void tell();

    CXClock &m_clock;
    Told m_told;
    QSet<QString> m_tasks;
    bool m_isAnyTask = false;
    bool m_areLists = false;
    ClockCall m_later;
    KWEventBus::Registration m_registration;
    std::vector<KWNotificationCenter::Observation> m_observations;
};
