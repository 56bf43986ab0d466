#include "corvexkit/filter/CXSmartFilter.h"

#include "corvexkit/filter/FilterRuleReader.h"
#include "corvexkit/filter/FilterRuleWords.h"
#include "corvexkit/time/TimeText.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

using namespace Qt::StringLiterals;

namespace {

using Condition = CXSmartFilterCondition;

QJsonObject written(const Condition &condition);

/// Writes what a condition asks as the one member of an object.
struct Writing {
    QJsonObject operator()(const Condition::Group &group) const
    {
        QJsonArray parts;
        for (const Condition &each : group.parts)
            parts.append(written(each));
        return {{group.join == Condition::Group::Join::All ? u"all"_s : u"any"_s, parts}};
    }
    QJsonObject operator()(const Condition::Lists &lists) const
    {
        return {{u"list"_s, QJsonArray::fromStringList(lists.ids)}};
    }
    QJsonObject operator()(const Condition::Folders &folders) const
    {
        return {{u"folder"_s, QJsonArray::fromStringList(folders.ids)}};
    }
    QJsonObject operator()(const Condition::Tags &tags) const
    {
        return {{u"tag"_s, QJsonArray::fromStringList(tags.names)}};
    }
    QJsonObject operator()(const Condition::Dates &dates) const
    {
        QJsonArray spans;
        for (const CXDateSpan &each : dates.spans)
            spans.append(written(each));
        return {{u"date"_s, spans}};
    }
    QJsonObject operator()(const Condition::Priorities &priorities) const
    {
        QJsonArray values;
        for (const int each : priorities.values)
            values.append(each);
        return {{u"priority"_s, values}};
    }
    QJsonObject operator()(const Condition::Assignees &assignees) const
    {
        QJsonArray who;
        for (const auto &[member, word] : FilterRuleWords::assignees)
            if (assignees.*member) who.append(word);
        for (const std::int64_t each : assignees.ids)
            who.append(qint64(each));
        return {{u"assignee"_s, who}};
    }
    QJsonObject operator()(const Condition::Words &words) const { return {{u"text"_s, words.text}}; }
    QJsonObject operator()(const Condition::Kinds &kinds) const
    {
        QJsonArray names;
        for (const auto &[kind, word] : FilterRuleWords::kinds)
            if (kinds.kinds.testFlag(kind)) names.append(word);
        return {{u"kind"_s, names}};
    }

    static QJsonValue written(const CXDateSpan &span)
    {
        if (span.kind == CXDateSpan::Kind::Relative)
            return QJsonObject{{u"days"_s, QJsonArray{span.first, span.last}}};
        if (span.kind != CXDateSpan::Kind::Fixed)
            return QString{FilterRuleWords::wordOf(FilterRuleWords::dates, span.kind)};
        QJsonObject days;
        if (span.range.from) days[u"from"_s] = TimeText::fromDay(*span.range.from);
        if (span.range.until) days[u"until"_s] = TimeText::fromDay(*span.range.until);
        return days;
    }
    static QJsonObject written(const Condition &condition) { return ::written(condition); }
};

QJsonObject written(const Condition &condition)
{
    const QJsonObject asked = std::visit(Writing{}, condition.question());
    return condition.isNegated() ? QJsonObject{{u"not"_s, asked}} : asked;
}

} // namespace

Result<CXSmartFilter> CXSmartFilter::parse(const QString &rule)
{
    Result<CXSmartFilterCondition> read = FilterRuleReader{}.read(rule);
    if (!read) return read.error();
    return CXSmartFilter{std::move(*read)};
}

QString CXSmartFilter::toRule() const
{
    QJsonObject rule = written(m_condition);
    rule[u"version"_s] = FilterRuleWords::version;
    return QString::fromUtf8(QJsonDocument{rule}.toJson(QJsonDocument::Compact));
}
