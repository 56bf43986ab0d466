#pragma once

#include <cstddef>
#include <cstdint>

/// The kinds of stored records. Announcements of changes name records by kind and id.
enum class RecordKind : std::uint8_t { User, UserSettings, ProjectGroup, Project, Tag, Task, ChecklistItem };

inline constexpr std::size_t recordKindCount = 7;
