#include "focus/FocusRecordQueue.h"

#include "corvexkit/log/CXLog.h"
#include "model/OrvaneKit.h"
#include "model/events/NotificationNames.h"

namespace {

constexpr CXLogger queueLog{u"focus"};

} // namespace

FocusRecordQueue::FocusRecordQueue(OrvaneKit &kit) : m_writer(kit)
{
    m_observations.push_back(
        kit.center().addObserver(KWNewMinuteComesNotification, [this](const auto &) { tryAgain(); }));
    m_observations.push_back(
        kit.center().addObserver(KWUserDidSignOutNotification, [this](const auto &) { m_waiting.clear(); }));
}

void FocusRecordQueue::store(const FocusRecord &record)
{
    m_waiting.append(record);
    tryAgain();
}

void FocusRecordQueue::tryAgain()
{
    while (!m_waiting.isEmpty()) {
        const Result<void> stored = m_writer.store(m_waiting.first());
        if (!stored) return queueLog.warning(stored.error().sentence);
        m_waiting.removeFirst();
    }
}
