#include "focus/FocusTargetSearch.h"

#include "corvexkit/log/CXLog.h"
#include "model/OrvaneKit.h"

#include <utility>

namespace {

constexpr CXLogger targetLog{u"focus"};

} // namespace

FocusTargetSearch::FocusTargetSearch(OrvaneKit &kit, QObject *parent) : QObject(parent), m_kit(kit) {}

// One at a time: of the texts typed meanwhile only the last one is looked for.
void FocusTargetSearch::find(const QString &typed)
{
    if (m_reading)
        m_next = typed;
    else
        read(typed);
}

void FocusTargetSearch::read(const QString &typed)
{
    m_reading = std::make_shared<int>();
    const auto choices = std::make_shared<QList<FocusTargetChoice>>();
    const auto block = [choices, typed,
                        userID = m_kit.account().currentUserID()](ObjectContext &context) -> Result<void> {
        *choices = focusTargetChoices(userID, typed, context);
        return context.readResult();
    };
    KWCoreDataService{m_kit.manager()}.async_perform(
        block, [this, choices, typed, waiting = std::weak_ptr{m_reading}](const Result<void> &done) {
            if (waiting.expired()) return;
            m_reading.reset();
            if (const auto next = std::exchange(m_next, std::nullopt)) return read(*next);
            if (!done) targetLog.warning(done.error().sentence);
            Q_EMIT found(typed, done ? *choices : QList<FocusTargetChoice>{});
        });
}
