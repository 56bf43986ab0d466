#include "cli/OccurrencesCommand.h"

#include "cli/OccurrenceRequest.h"
#include "corvexkit/recurrence/CXRecurrenceAssistant.h"
#include "corvexkit/time/TimeText.h"

#include <QJsonDocument>
#include <QJsonObject>

#include <string>

using namespace Qt::StringLiterals;
using namespace std::chrono;

namespace {

// An all-day occurrence is its day, also where clocks pass over its midnight.
QString occurrenceText(Instant occurrence, const CXRecurringObject &object)
{
    const LocalTime local = object.timeZone.toLocal(occurrence);
    return TimeText::fromLocalTime(object.isAllDay ? LocalTime{floor<days>(local)} : local);
}

// Calls `write` with the text of every occurrence until it answers false. A rule of seconds may have
// billions: only some are held at a time.
template <class Write>
void forEachOccurrence(const OccurrenceRequest &request, Write write)
{
    constexpr std::size_t most = 50'000;
    Instant from = request.from;
    std::size_t left = request.limit.value_or(std::numeric_limits<std::size_t>::max());
    while (left > 0) {
        const std::size_t wanted = std::min(most, left);
        const std::vector<Instant> some = CXRecurrenceAssistant::calendar_occurrenceDatesForRecurringObject(
            request.object, from, request.to, true, wanted);
        for (const Instant occurrence : some)
            if (!write(occurrenceText(occurrence, request.object))) return;
        if (some.size() < wanted) return;
        left -= wanted;
        from = some.back() + milliseconds{1};
    }
}

void answerLine(QByteArrayView line, const CXTimeZone &zone, QTextStream &out)
{
    const Result<OccurrenceRequest> request = OccurrenceRequest::ofLine(line, zone);
    if (!request) {
        const QJsonObject error{{u"error"_s, request.error().sentence}};
        out << QJsonDocument{error}.toJson(QJsonDocument::Compact) << '\n';
        return;
    }
    out << '[';
    const char *separator = "\"";
    forEachOccurrence(*request, [&](const QString &text) {
        out << separator << text << '"';
        separator = ",\"";
        return out.status() == QTextStream::Ok;
    });
    out << "]\n";
}

} // namespace

ExitStatus runOccurrences(const Invocation &invocation, const CXTimeZone &zone, CommandStreams streams)
{
    QTextStream &out = streams.out;
    if (invocation.readsStandardInput) {
        std::string line;
        while (out.status() == QTextStream::Ok && std::getline(streams.in, line)) {
            answerLine(line, zone, out);
            out.flush(); // whoever asks line by line waits for the answer
        }
        return ExitStatus::Done;
    }
    const Result<OccurrenceRequest> request = OccurrenceRequest::of(invocation, zone);
    if (!request) return failWith(request.error().sentence, ExitStatus::WrongUsage, streams.err);
    forEachOccurrence(*request, [&](const QString &text) {
        out << text << '\n';
        return out.status() == QTextStream::Ok;
    });
    return ExitStatus::Done;
}
