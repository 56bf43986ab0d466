#include "cli/OccurrenceRequest.h"

#include "cli/CommandText.h"
#include "cli/TimeArgument.h"
#include "corvexkit/recurrence/CXRecurrenceRule.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

#include <cmath>

using namespace Qt::StringLiterals;

namespace {

// As it was given, times unread.
struct RequestTexts {
    QString start;
    QString rule;
    QStringList exdates;
    QString from;
    QString to;
    bool isAllDay = false;
    std::optional<std::size_t> limit;
};

Result<OccurrenceRequest> requestOf(const RequestTexts &texts, const CXTimeZone &zone)
{
    const Result<CXRecurrenceRule> rule = CXRecurrenceRule::parse(texts.rule);
    if (!rule) return rule.error();
    const Result<Instant> start = readTime(texts.start, zone);
    if (!start) return start.error();
    const Result<Instant> from = readTime(texts.from, zone);
    if (!from) return from.error();
    const Result<Instant> to = readTime(texts.to, zone);
    if (!to) return to.error();

    OccurrenceRequest request{.object = {}, .from = *from, .to = *to, .limit = texts.limit};
    request.object.timeZone = zone;
    request.object.isAllDay = texts.isAllDay;
    request.object.startDate = texts.isAllDay ? zone.startOfDay(zone.dayOf(*start)) : *start;
    request.object.recurrenceRuleString = texts.rule;
    for (const QString &each : texts.exdates) {
        const Result<Instant> excluded = readTime(each, zone);
        if (!excluded) return excluded.error();
        request.object.excludedOccurrenceDates.insert(*excluded);
    }
    return request;
}

Error wrongLimit() { return Error{commandText("The limit is a whole number, 0 or more.")}; }

/// Takes the values of a JSON object one by one; what was wrong with any is told at the end.
class ObjectReader {
public:
    explicit ObjectReader(const QJsonObject &object) : m_object{object} {}

    QString text(QLatin1StringView name)
    {
        if (isMissing(name)) fail(commandText("“%1” is missing."), name);
        return optionalText(name);
    }
    QString optionalText(QLatin1StringView name)
    {
        if (!isMissing(name) && !m_object[name].isString()) fail(commandText("“%1” is no text."), name);
        return m_object[name].toString();
    }
    bool flag(QLatin1StringView name)
    {
        if (!isMissing(name) && !m_object[name].isBool())
            fail(commandText("“%1” is neither true nor false."), name);
        return m_object[name].toBool();
    }
    QStringList texts(QLatin1StringView name)
    {
        QStringList texts;
        if (!isMissing(name) && !m_object[name].isArray())
            fail(commandText("“%1” is no list of texts."), name);
        for (const QJsonValue &each : m_object[name].toArray()) {
            if (!each.isString()) fail(commandText("“%1” is no list of texts."), name);
            texts.append(each.toString());
        }
        return texts;
    }
    std::optional<std::size_t> limit(QLatin1StringView name)
    {
        if (isMissing(name)) return {};
        const double number = m_object[name].toDouble(-1);
        const bool isWhole = number >= 0 && number <= 1e15 && std::floor(number) == number;
        if (!isWhole && !m_error) m_error = wrongLimit();
        return isWhole ? std::optional{std::size_t(number)} : std::nullopt;
    }

    const std::optional<Error> &error() const { return m_error; }

private:
    bool isMissing(QLatin1StringView name) const
    {
        const QJsonValue value = m_object[name];
        return value.isUndefined() || value.isNull();
    }
    void fail(const QString &sentence, QLatin1StringView name)
    {
        if (!m_error) m_error = Error{sentence.arg(name)};
    }

    const QJsonObject &m_object;
    std::optional<Error> m_error;
};

} // namespace

Result<OccurrenceRequest> OccurrenceRequest::of(const Invocation &invocation, const CXTimeZone &zone)
{
    RequestTexts texts{.start = invocation.start,
                       .rule = invocation.rule,
                       .exdates = invocation.exdates,
                       .from = invocation.from,
                       .to = invocation.to,
                       .isAllDay = invocation.isAllDay,
                       .limit = {}};
    if (!invocation.limit.isEmpty()) {
        bool isNumber = false;
        texts.limit = invocation.limit.toULongLong(&isNumber);
        if (!isNumber) return wrongLimit();
    }
    return requestOf(texts, zone);
}

Result<OccurrenceRequest> OccurrenceRequest::ofLine(QByteArrayView line, const CXTimeZone &zone)
{
    QJsonParseError parsing{};
    const QJsonDocument document =
        QJsonDocument::fromJson(QByteArray::fromRawData(line.data(), line.size()), &parsing);
    if (!document.isObject())
        return Error{parsing.error == QJsonParseError::NoError
                         ? commandText("The line is no JSON object.")
                         : commandText("The line is no JSON: %1 at byte %2.")
                               .arg(parsing.errorString())
                               .arg(parsing.offset)};
    const QJsonObject object = document.object();
    ObjectReader reader{object};
    const QString zoneName = reader.optionalText("zone"_L1);
    const RequestTexts texts{.start = reader.text("start"_L1),
                             .rule = reader.text("rule"_L1),
                             .exdates = reader.texts("exdates"_L1),
                             .from = reader.text("from"_L1),
                             .to = reader.text("to"_L1),
                             .isAllDay = reader.flag("allDay"_L1),
                             .limit = reader.limit("limit"_L1)};
    if (reader.error()) return *reader.error();
    if (zoneName.isEmpty()) return requestOf(texts, zone);
    const std::optional<CXTimeZone> named = CXTimeZone::named(zoneName);
    if (!named) return Error{commandText("There is no time zone “%1”.").arg(zoneName)};
    return requestOf(texts, *named);
}
