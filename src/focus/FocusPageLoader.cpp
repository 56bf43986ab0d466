#include "focus/FocusPageLoader.h"

#include "focus/FocusReader.h"
#include "model/OrvaneKit.h"
#include "model/events/NotificationNames.h"

#include <algorithm>
#include <array>

struct FocusPageLoader::State {
    struct Reading {};

    State(FocusPageLoader &itsLoader, OrvaneKit &itsKit);

    void want(const FocusPageRequest &request);
    void refresh();
    void read();
    void take(const Result<void> &done, FocusPageContent content);

    FocusPageLoader &loader;
    OrvaneKit &kit;
    bool isLoading = false; // between load() and stop()
    FocusPageRequest wanted;
    std::optional<FocusPageContent> shown;
    std::shared_ptr<Reading> reading; // under way
    bool isOutdated = false;          // what it reads
    std::vector<KWNotificationCenter::Observation> observations;
    KWEventBus::Registration registration;
};

FocusPageLoader::State::State(FocusPageLoader &itsLoader, OrvaneKit &itsKit) : loader(itsLoader), kit(itsKit)
{
    for (const QString &each :
         {KWNewDayComesNotification, SystemTimeZoneDidChangeNotification, KWPomoSettingsChangedNotification,
          KWSyncDidPullPomoSettingsNotification, KWUserSettingsDidChangeNotification,
          KWDataDidChangeOutsideMainAppNotification, KWSyncDidBatchPullNotification,
          KWSyncDidPullHabitsNotification})
        observations.push_back(kit.center().addObserver(each, [this](const auto &) { refresh(); }));
    observations.push_back(
        kit.center().addObserver(KWUserDidSignOutNotification, [this](const auto &) { loader.stop(); }));
    registration = kit.bus().registerEventBus([this](const StoreChange &change) {
        using enum RecordKind;
        constexpr std::array kinds{Pomodoro, FocusSlice, Task, Project, Tag, Habit, PomoSettings};
        if (std::ranges::any_of(kinds, [&](RecordKind each) { return change.touches(each); })) refresh();
    });
}

void FocusPageLoader::State::want(const FocusPageRequest &request)
{
    wanted = request;
    refresh();
}

void FocusPageLoader::State::refresh()
{
    if (!isLoading) return;
    isOutdated = reading != nullptr;
    if (!isOutdated) read();
}

void FocusPageLoader::State::read()
{
    reading = std::make_shared<Reading>();
    isOutdated = false;
    const auto content = std::make_shared<FocusPageContent>();
    const auto block = [content, request = wanted,
                        userID = kit.account().currentUserID()](ObjectContext &context) -> Result<void> {
        Result<FocusPageContent> page = FocusReader::readPage(request, userID, context);
        if (!page) return page.error();
        *content = *std::move(page);
        return context.readResult();
    };
    KWCoreDataService{kit.manager()}.async_perform(
        block, [this, content, waiting = std::weak_ptr{reading}](const Result<void> &done) {
            if (waiting.expired()) return;
            reading.reset();
            if (isOutdated) return read();
            take(done, std::move(*content));
        });
}

void FocusPageLoader::State::take(const Result<void> &done, FocusPageContent content)
{
    if (!done) {
        Q_EMIT loader.failed(done.error().sentence);
        return;
    }
    if (shown == content) return;
    shown = std::move(content);
    Q_EMIT loader.loaded(*shown);
}

FocusPageLoader::FocusPageLoader(OrvaneKit &kit) : m_state(std::make_unique<State>(*this, kit)) {}

FocusPageLoader::~FocusPageLoader() = default;

void FocusPageLoader::load(const FocusPageRequest &request)
{
    if (!m_state->kit.account().isSignedIn()) return;
    m_state->isLoading = true;
    m_state->shown.reset();
    m_state->want(request);
}

void FocusPageLoader::loadMoreRecords()
{
    FocusPageRequest more = m_state->wanted;
    more.recordLimit += FocusPageRequest::recordsAtOnce;
    m_state->want(more);
}

void FocusPageLoader::showPeriod(const FocusPeriod &period)
{
    FocusPageRequest other = m_state->wanted;
    other.period = period;
    m_state->want(other);
}

const FocusPageRequest &FocusPageLoader::request() const { return m_state->wanted; }

void FocusPageLoader::stop()
{
    m_state->isLoading = false;
    m_state->reading.reset();
}
