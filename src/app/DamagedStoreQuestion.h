#pragma once

#include "app/DataCare.h"
#include "app/ports/AlertPort.h"

/// What a person is asked when the open store turns out to be damaged: whether the newest sound backup is
/// to take its place, which happens at a new start. Main thread.
class DamagedStoreQuestion {
public:
    /// Both must outlive it.
    DamagedStoreQuestion(AlertPort &alerts, DataCare &care) : m_alerts(alerts), m_care(care) {}

    void ask(const std::optional<StoreBackup> &newestGood);

private:
    AlertPort &m_alerts;
    DataCare &m_care;
};
