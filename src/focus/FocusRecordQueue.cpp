#include "focus/FocusRecordQueue.h"

#include "corvexkit/log/CXLog.h"
#include "model/OrvaneKit.h"
#include "model/events/NotificationNames.h"
#include "model/settings/KWLocalizedString.h"

namespace {

constexpr CXLogger queueLog{u"focus"};

} // namespace

FocusRecordQueue::FocusRecordQueue(OrvaneKit &kit) : m_writer(kit)
{
    m_observations.push_back(
        kit.center().addObserver(KWNewMinuteComesNotification, [this](const auto &) { (void)tryAgain(); }));
    m_observations.push_back(
        kit.center().addObserver(KWUserDidSignOutNotification, [this](const auto &) { m_waiting.clear(); }));
}

void FocusRecordQueue::store(const FocusRecord &record)
{
    m_waiting.append(record);
    const Result<void> stored = tryAgain();
    if (!stored && onFailure)
        onFailure(KWLocalizedString("The Pomo could not be saved; this is tried again each minute. %1")
                      .arg(stored.error().sentence));
}

Result<void> FocusRecordQueue::tryAgain()
{
    while (!m_waiting.isEmpty()) {
        const Result<void> stored = m_writer.store(m_waiting.first());
        if (!stored) {
            queueLog.warning(stored.error().sentence);
            return stored;
        }
        m_waiting.removeFirst();
    }
    return {};
}
