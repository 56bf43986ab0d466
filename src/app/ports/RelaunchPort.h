#pragma once

/// Starting the program anew. Main thread.
class RelaunchPort {
public:
    virtual ~RelaunchPort() = default;
    /// Quits as the person would, and starts the program again with the same arguments once everything is
    /// saved and the data folder is let go. Returns at once.
    virtual void cx_relunch() {}
};
