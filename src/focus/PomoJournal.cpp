#include "focus/PomoJournal.h"

#include "corvexkit/log/CXLog.h"
#include "corvexkit/time/TimeText.h"
#include "model/settings/KWUserDefaults.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

using namespace Qt::StringLiterals;

namespace {

constexpr CXLogger journalLog{u"focus"};

std::optional<Instant> instantOf(const QJsonValue &value) { return TimeText::toInstant(value.toString()); }

} // namespace

FocusRecord PomoJournal::Entry::record() const
{
    return {.startDate = startDate,
            .endDate = stretches.isEmpty() ? startDate : stretches.last().endDate,
            .pauseDuration = std::chrono::round<std::chrono::seconds>(pauseOf(stretches)).count(),
            .stretches = stretches};
}

void PomoJournal::keep(const Entry &entry)
{
    QJsonArray stretches;
    for (const FocusStretch &each : entry.stretches)
        stretches.append(QJsonObject{{u"start"_s, TimeText::fromInstant(each.startDate)},
                                     {u"end"_s, TimeText::fromInstant(each.endDate)},
                                     {u"target"_s, each.target.text()},
                                     {u"pause"_s, each.isPause}});
    const QJsonObject pomo{{u"user"_s, entry.userID},
                           {u"start"_s, TimeText::fromInstant(entry.startDate)},
                           {u"stretches"_s, stretches}};
    m_defaults.set(Settings::runningPomo,
                   QString::fromUtf8(QJsonDocument{pomo}.toJson(QJsonDocument::Compact)));
    m_defaults.synchronise();
}

void PomoJournal::clear()
{
    if (!m_defaults.contains(Settings::runningPomo)) return;
    m_defaults.remove(Settings::runningPomo);
    m_defaults.synchronise();
}

std::optional<PomoJournal::Entry> PomoJournal::left() const
{
    const QString text = m_defaults.value(Settings::runningPomo);
    if (text.isEmpty()) return std::nullopt;
    const QJsonObject pomo = QJsonDocument::fromJson(text.toUtf8()).object();
    const auto start = instantOf(pomo[u"start"_s]);
    Entry entry{.userID = pomo[u"user"_s].toString(), .startDate = start.value_or(Instant{}), .stretches{}};
    bool isWhole = start && !entry.userID.isEmpty();
    for (const QJsonValue &each : pomo[u"stretches"_s].toArray()) {
        const auto from = instantOf(each[u"start"_s]);
        const auto to = instantOf(each[u"end"_s]);
        isWhole = isWhole && from && to && *from <= *to;
        if (!isWhole) break;
        entry.stretches.append({.startDate = *from,
                                .endDate = *to,
                                .target = FocusTarget::fromText(each[u"target"_s].toString()),
                                .isPause = each[u"pause"_s].toBool()});
    }
    if (isWhole) return entry;
    journalLog.warning(u"the Pomo of the last run cannot be read"_s);
    return std::nullopt;
}
