#pragma once

#include "corvexkit/time/ZoneRule.h"

#include <optional>
#include <string>
#include <string_view>
#include <vector>

/// What one compiled zone file says: TZif, RFC 8536, versions 1 to 4.
struct ZoneFile {
    std::chrono::seconds firstOffset{0};     // before the first transition
    std::vector<ZoneTransition> transitions; // ascending
    std::string rule;                        // after the last one; empty in version 1 files

    /// Nothing for bytes that are no such file, are cut short or contradict themselves, and for files
    /// that count leap seconds.
    static std::optional<ZoneFile> parse(std::string_view bytes);
};
