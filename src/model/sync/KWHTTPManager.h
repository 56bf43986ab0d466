#pragma once

#include <QString>

/// What a service is told of the program with every request.
class KWHTTPManager {
public:
    /// One JSON object: program, version, system, processor, language. Nothing that tells one machine, or one
    /// person, from another. Any thread.
    static QString deviceInfo();
};
