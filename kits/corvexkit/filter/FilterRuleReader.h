#pragma once

#include "corvexkit/Result.h"
#include "corvexkit/filter/CXSmartFilterCondition.h"

class QJsonArray;
class QJsonObject;
class QJsonValue;

/// Reads the rule of one filter; see CXSmartFilter::parse(). Used once.
class FilterRuleReader {
public:
    Result<CXSmartFilterCondition> read(const QString &rule);

private:
    /// Follows the way to what is being read, for sentences.
    class Step;

    CXSmartFilterCondition readCondition(const QJsonValue &value);
    CXSmartFilterCondition::Question readQuestion(const QString &member, const QJsonValue &value);
    CXSmartFilterCondition::Group readGroup(CXSmartFilterCondition::Group::Join join,
                                            const QJsonValue &value);
    QStringList readTexts(const QJsonValue &value);
    CXSmartFilterCondition::Dates readDates(const QJsonValue &value);
    CXDateSpan readSpan(const QJsonValue &value);
    CXDateSpan readRelative(const QJsonValue &value);
    CXDateSpan readFixed(const QJsonObject &days);
    std::optional<Day> readDay(const QJsonObject &days, const QString &member);
    CXSmartFilterCondition::Priorities readPriorities(const QJsonValue &value);
    CXSmartFilterCondition::Assignees readAssignees(const QJsonValue &value);
    CXSmartFilterCondition::Kinds readKinds(const QJsonValue &value);
    /// Calls `readEach` for each element of an array that must have some.
    template <class Read>
    void forEach(const QJsonValue &value, Read readEach);

    void fail(const QString &reason);

    QString m_where;
    int m_depth = 0;
    int m_conditions = 0;
    std::optional<Error> m_error; // the first
};
