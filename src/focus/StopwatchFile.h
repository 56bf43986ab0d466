#pragma once

#include "corvexkit/stopwatch/StopwatchStore.h"

/// Keeps the stopwatch in a file of the data folder. Main thread.
class StopwatchFile final : public Corvex::Focus::StopwatchStore {
public:
    explicit StopwatchFile(QString path) : m_path{std::move(path)} {}

    Result<QString> load() override;
    Result<void> save(const QString &text) override;
    Result<void> clear() override;
    /// Beside it, with the ending ".unreadable", and with a number when there is one already.
    Result<void> putAside() override;

private:
    QString m_path;
};
