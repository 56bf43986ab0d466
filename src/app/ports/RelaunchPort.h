#pragma once

/// Starting the program anew. Main thread.
class RelaunchPort {
public:
    virtual ~RelaunchPort() = default;
    /// Quits as the person would, and starts the program again once everything is saved and the data folder
    /// is let go: on the same folder with the same settings, in the background if it was there, and without
    /// the links that it was once asked to open. Returns at once.
    virtual void cx_relunch() {}
};
