#pragma once

#include "corvexkit/Result.h"
#include "corvexkit/filter/CXSmartFilterCondition.h"

/// Which tasks a person wants to see together: a condition that is kept as a rule, a text in JSON. The
/// members of a rule are described in docs/filters.md. A value; any thread.
class CXSmartFilter {
public:
    /// Fits everything.
    CXSmartFilter() = default;
    explicit CXSmartFilter(CXSmartFilterCondition condition) : m_condition(std::move(condition)) {}

    /// Reads a rule. Members that it does not know are passed over, unless they are all that an object
    /// has. Whatever else is not as described is an error whose sentence says where and why.
    static Result<CXSmartFilter> parse(const QString &rule);

    /// The rule, which reads back as an equal filter. Equal filters have the same text.
    QString toRule() const;

    const CXSmartFilterCondition &condition() const { return m_condition; }
    bool matches(const CXFilteredItem &item, const CXSmartFilterFrame &frame) const
    {
        return m_condition.matches(item, frame);
    }
    /// Whether nothing but notes can fit.
    bool isNoteKind() const { return m_condition.possibleKinds() == CXItemKinds{CXItemKind::Note}; }

    bool operator==(const CXSmartFilter &) const = default;

private:
    CXSmartFilterCondition m_condition;
};
