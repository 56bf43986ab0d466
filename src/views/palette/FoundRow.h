#pragma once

#include "app/MenuCommand.h"
#include "model/records/KWListIdentifier.h"
#include "model/text/SearchWords.h"
#include "views/theme/Icons.h"

#include <optional>

/// A row of what was found: a list, a command, a task, a heading above others, or the way to the search page.
struct FoundRow {
    enum class Kind : std::uint8_t { List, Command, Task, Heading, Search };

    Kind kind = Kind::List;
    QString id; ///< of the task; of the others what recent use is remembered by
    QString title;
    QList<TextMark> titleMarks{};
    QString excerpt{}; ///< a line below the title; empty for none
    QList<TextMark> excerptMarks{};
    QString note{}; ///< at the end: what it is, its keys, or why it cannot be used now
    std::optional<Icon> icon{};
    QString color{}; ///< "#rrggbb" of the dot where there is no icon
    bool isEnabled = true;
    bool isClosed = false; ///< of a task
    KWListIdentifier list{};
    MenuCommand command{};
};
