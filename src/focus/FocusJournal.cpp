#include "focus/FocusJournal.h"

#include "corvexkit/log/CXLog.h"
#include "focus/FocusJournalText.h"
#include "model/settings/KWUserDefaults.h"

using namespace Qt::StringLiterals;

namespace {

constexpr CXLogger journalLog{u"focus"};

} // namespace

bool FocusJournal::Session::isSameAs(const Session &other) const
{
    return userID == other.userID && record.type == other.record.type &&
           record.startDate == other.record.startDate;
}

FocusJournal::FocusJournal(KWUserDefaults &defaults) : m_defaults(defaults)
{
    const QStringList notStored = m_defaults.value(Settings::focusSessionsNotStored);
    const QString running = m_defaults.value(Settings::runningPomo);
    for (const QString &each : notStored) {
        if (const auto line = FocusJournalText::line(each))
            (line->isLeft ? m_left : m_waiting).append(line->session);
        else
            putAside(each);
    }
    if (!running.isEmpty()) {
        if (const auto line = FocusJournalText::line(running))
            m_left.append(line->session);
        else
            putAside(running);
    }
    const bool isAllInLists = running.isEmpty() && m_left.size() + m_waiting.size() == notStored.size();
    if (isAllInLists) return;
    m_defaults.remove(Settings::runningPomo);
    setLists();
    m_defaults.synchronise();
}

void FocusJournal::putAside(const QString &text)
{
    journalLog.warning(
        u"a focus session that was not stored cannot be read; it is kept in group.ini as %1"_s.arg(
            QLatin1StringView{Settings::unreadableFocusSessions.key}));
    QStringList aside = m_defaults.value(Settings::unreadableFocusSessions);
    aside.append(text);
    m_defaults.set(Settings::unreadableFocusSessions, aside);
}

void FocusJournal::keepRunning(const Session &session)
{
    m_running = session;
    m_defaults.set(Settings::runningPomo, FocusJournalText::text(session, FocusJournalText::Kind::Running));
    m_defaults.synchronise();
}

void FocusJournal::dropRunning()
{
    if (!m_running) return;
    m_running.reset();
    m_defaults.remove(Settings::runningPomo);
    m_defaults.synchronise();
}

Result<void> FocusJournal::keepWaiting(const Session &session)
{
    const auto isIt = [&session](const Session &each) { return each.isSameAs(session); };
    m_left.removeIf(isIt);
    m_waiting.removeIf(isIt);
    m_waiting.append(session);
    if (m_running && isIt(*m_running)) {
        m_running.reset();
        m_defaults.remove(Settings::runningPomo);
    }
    setLists();
    return m_defaults.save();
}

void FocusJournal::remove(const Session &session)
{
    const auto isIt = [&session](const Session &each) { return each.isSameAs(session); };
    if (m_left.removeIf(isIt) + m_waiting.removeIf(isIt) == 0) return;
    setLists();
    m_defaults.synchronise();
}

void FocusJournal::setLists()
{
    QStringList lines;
    for (const Session &each : m_left)
        lines.append(FocusJournalText::text(each, FocusJournalText::Kind::Left));
    for (const Session &each : m_waiting)
        lines.append(FocusJournalText::text(each, FocusJournalText::Kind::Waiting));
    if (lines.isEmpty())
        m_defaults.remove(Settings::focusSessionsNotStored);
    else
        m_defaults.set(Settings::focusSessionsNotStored, lines);
}
