#pragma once

#include "corvexkit/filter/CXSmartFilterCondition.h"

#include <QLatin1StringView>

#include <array>
#include <optional>
#include <utility>

/// The words of filter rules, as they are written.
namespace FilterRuleWords {

/// The version of rules that is written; a later one is refused.
inline constexpr int version = 1;

template <class Value, std::size_t count>
using Words = std::array<std::pair<Value, QLatin1StringView>, count>;

inline constexpr Words<CXDateSpan::Kind, 8> dates{{
    {CXDateSpan::Kind::None, QLatin1StringView{"none"}},
    {CXDateSpan::Kind::Any, QLatin1StringView{"any"}},
    {CXDateSpan::Kind::Overdue, QLatin1StringView{"overdue"}},
    {CXDateSpan::Kind::Repeats, QLatin1StringView{"repeats"}},
    {CXDateSpan::Kind::Today, QLatin1StringView{"today"}},
    {CXDateSpan::Kind::Tomorrow, QLatin1StringView{"tomorrow"}},
    {CXDateSpan::Kind::ThisWeek, QLatin1StringView{"thisWeek"}},
    {CXDateSpan::Kind::Next7Days, QLatin1StringView{"next7Days"}},
}};

inline constexpr Words<CXItemKind, 3> kinds{{
    {CXItemKind::Task, QLatin1StringView{"task"}},
    {CXItemKind::Checklist, QLatin1StringView{"checklist"}},
    {CXItemKind::Note, QLatin1StringView{"note"}},
}};

using Assignees = CXSmartFilterCondition::Assignees;
inline constexpr Words<bool Assignees::*, 3> assignees{{
    {&Assignees::me, QLatin1StringView{"me"}},
    {&Assignees::nobody, QLatin1StringView{"nobody"}},
    {&Assignees::other, QLatin1StringView{"other"}},
}};

inline constexpr std::array priorities{5, 3, 1, 0};

template <class Value, std::size_t count>
std::optional<Value> valueOf(const Words<Value, count> &words, const QString &text)
{
    for (const auto &[value, word] : words)
        if (word == text) return value;
    return std::nullopt;
}

template <class Value, std::size_t count>
QLatin1StringView wordOf(const Words<Value, count> &words, Value wanted)
{
    for (const auto &[value, word] : words)
        if (value == wanted) return word;
    return {};
}

} // namespace FilterRuleWords
