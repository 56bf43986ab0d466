#include "habits/HabitPageLoader.h"

#include "habits/HabitReader.h"
#include "model/OrvaneKit.h"
#include "model/events/NotificationNames.h"
#include "model/records/KWUserSettings.h"

#include <array>

struct HabitPageLoader::State {
    struct Reading {};
    struct Wanted {
        QString habitID;
        Day month{};
    };

    State(HabitPageLoader &itsLoader, OrvaneKit &itsKit);

    void refresh();
    void read();
    void take(const Result<void> &done, HabitPageContent page, std::optional<HabitDetailContent> detail,
              const QString &habitID);

    HabitPageLoader &loader;
    OrvaneKit &kit;
    bool isLoading = false; // between load() and stop()
    Wanted wanted;
    std::optional<HabitPageContent> shownPage;
    std::optional<HabitDetailContent> shownDetail;
    std::shared_ptr<Reading> reading; // under way
    bool isOutdated = false;          // what it reads
    std::vector<KWNotificationCenter::Observation> observations;
    KWEventBus::Registration registration;
};

HabitPageLoader::State::State(HabitPageLoader &itsLoader, OrvaneKit &itsKit) : loader(itsLoader), kit(itsKit)
{
    for (const QString &each : {KWNewHabitDayComesNotification, KWHabitSettingsChangedNotification,
                                KWDataDidChangeOutsideMainAppNotification, KWSyncDidBatchPullNotification,
                                KWSyncDidPullHabitsNotification, KWUserSettingsDidChangeNotification})
        observations.push_back(kit.center().addObserver(each, [this](const auto &) { refresh(); }));
    observations.push_back(
        kit.center().addObserver(KWUserDidSignOutNotification, [this](const auto &) { loader.stop(); }));
    registration = kit.bus().registerEventBus([this](const StoreChange &change) {
        using enum RecordKind;
        constexpr std::array kinds{HabitSection, Habit, HabitCheckin, HabitRecord, HabitSkip};
        for (const RecordKind each : kinds)
            if (change.touches(each)) return refresh();
    });
}

void HabitPageLoader::State::refresh()
{
    if (!isLoading) return;
    isOutdated = reading != nullptr;
    if (!isOutdated) read();
}

void HabitPageLoader::State::read()
{
    struct Answer {
        HabitPageContent page;
        std::optional<HabitDetailContent> detail;
    };
    reading = std::make_shared<Reading>();
    isOutdated = false;
    const auto answer = std::make_shared<Answer>();
    const auto block = [answer, which = wanted,
                        userID = kit.account().currentUserID()](ObjectContext &context) -> Result<void> {
        answer->page = HabitReader::readPage(userID, context);
        if (!which.habitID.isEmpty())
            answer->detail = HabitReader::readDetail(which.habitID, which.month, context);
        return context.readResult();
    };
    KWCoreDataService{kit.manager()}.async_perform(
        block,
        [this, answer, habitID = wanted.habitID, waiting = std::weak_ptr{reading}](const Result<void> &done) {
            if (waiting.expired()) return;
            reading.reset();
            if (isOutdated) return read();
            take(done, std::move(answer->page), std::move(answer->detail), habitID);
        });
}

void HabitPageLoader::State::take(const Result<void> &done, HabitPageContent page,
                                  std::optional<HabitDetailContent> detail, const QString &habitID)
{
    if (!done) {
        Q_EMIT loader.failed(done.error().sentence);
        return;
    }
    if (shownPage != page) {
        shownPage = std::move(page);
        Q_EMIT loader.pageLoaded(*shownPage);
    }
    const bool isGone = !detail && !habitID.isEmpty();
    if (isGone) Q_EMIT loader.detailGone();
    if (shownDetail == detail) return;
    shownDetail = std::move(detail);
    if (shownDetail) Q_EMIT loader.detailLoaded(*shownDetail);
}

HabitPageLoader::HabitPageLoader(OrvaneKit &kit) : m_state(std::make_unique<State>(*this, kit)) {}

HabitPageLoader::~HabitPageLoader() = default;

void HabitPageLoader::load()
{
    if (!m_state->kit.account().isSignedIn()) return;
    m_state->isLoading = true;
    m_state->shownPage.reset();
    m_state->shownDetail.reset();
    m_state->refresh();
}

void HabitPageLoader::showDetail(const QString &habitID, Day month)
{
    m_state->wanted = {habitID, month};
    m_state->shownDetail.reset();
    m_state->refresh();
}

void HabitPageLoader::stop()
{
    m_state->isLoading = false;
    m_state->reading.reset();
    m_state->wanted = {};
}

Day HabitPageLoader::today() const
{
    return KWUserSettings::habitDayOfUser(m_state->kit.account().currentUserID(), m_state->kit.context());
}

std::chrono::weekday HabitPageLoader::firstWeekday() const
{
    return KWUserSettings::firstWeekdayOfUser(m_state->kit.account().currentUserID(), m_state->kit.context());
}
