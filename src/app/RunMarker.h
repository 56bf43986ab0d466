#pragma once

#include "model/store/StoreCare.h"

#include <QString>

/// Tells how the last run on a data folder ended: by a file that stands there while the client runs, and
/// that only a proper end takes away. Used by the one process that holds the folder.
class RunMarker {
public:
    explicit RunMarker(QString path) : m_path(std::move(path)) {}
    RunMarker(const RunMarker &) = delete;
    RunMarker &operator=(const RunMarker &) = delete;

    /// Sets the marker. Where it cannot be set every run counts as ended.
    LastRun begin();
    /// The run ends as it should.
    void end();

private:
    QString m_path;
};
