#include "calendar/CalendarPageLoader.h"

#include "calendar/CalendarPageReader.h"
#include "calendar/KWRepeatInstanceService.h"
#include "model/OrvaneKit.h"
#include "model/events/NotificationNames.h"
#include "model/events/PendingDeletes.h"
#include "model/records/KWUserSettings.h"

#include <algorithm>
#include <array>

struct CalendarPageLoader::State {
    using Content = std::shared_ptr<const CalendarPageContent>;
    struct Reading {};

    State(CalendarPageLoader &itsLoader, OrvaneKit &itsKit, KWRepeatInstanceService &itsRepeats,
          const CXClock &itsClock);

    void requestOccurrences();
    void refresh();
    void forgetAll();
    void read(const CalendarPage &which);
    void take(const CalendarPage &which, const Result<void> &done, Content content, bool isAsBefore);
    void readNeighbours();
    void show(Content content);

    CalendarPageLoader &loader;
    OrvaneKit &kit;
    KWRepeatInstanceService &repeats;
    const CXClock &clock;
    std::optional<CalendarPage> page; // that was asked for
    Content shown;                    // what was last told
    std::vector<Content> known;       // true still: the page, and those before and after it
    std::shared_ptr<Reading> reading; // under way; an answer to another one is dropped
    bool isOutdated = false;          // what it reads
    PendingDeletes pendingDeletes;
    std::vector<KWNotificationCenter::Observation> observations;
    KWEventBus::Registration registration;
};

CalendarPageLoader::State::State(CalendarPageLoader &itsLoader, OrvaneKit &itsKit,
                                 KWRepeatInstanceService &itsRepeats, const CXClock &itsClock)
    : loader(itsLoader)
    , kit(itsKit)
    , repeats(itsRepeats)
    , clock(itsClock)
    , pendingDeletes(itsKit.center(), [this] { forgetAll(); })
{
    const auto on = [this](const QString &name, void (State::*action)()) {
        observations.push_back(
            kit.center().addObserver(name, [this, action](const KWNotification &) { (this->*action)(); }));
    };
    for (const QString &each :
         {KWKWRepeatInstanceGeneratedNotification, KWNewDayComesNotification, KWNewHabitDayComesNotification,
          KWHabitSettingsChangedNotification, KWCalendarDisplayConfigurationDidChangeNotification,
          KWCalSubDisplayStatusDidChangeNotification})
        on(each, &State::forgetAll);
    for (const QString &each : {KWDataDidChangeOutsideMainAppNotification, KWSyncDidBatchPullNotification,
                                KWUserSettingsDidChangeNotification, SystemTimeZoneDidChangeNotification,
                                KWCalSubDidPullEventsNotification})
        on(each, &State::refresh);
    observations.push_back(kit.center().addObserver(KWUserDidSignOutNotification,
                                                    [this](const KWNotification &) { loader.stop(); }));
    registration = kit.bus().registerEventBus([this](const StoreChange &change) {
        using enum RecordKind;
        constexpr std::array shownBeside{ChecklistItem, Project,   CalSubscription, Habit,
                                         HabitCheckin,  HabitSkip, Pomodoro,        FocusSlice};
        if (change.touches(Task) || change.touches(CalSubscriptionEvent))
            refresh();
        else if (std::ranges::any_of(shownBeside, [&](RecordKind each) { return change.touches(each); }))
            forgetAll();
    });
}

void CalendarPageLoader::State::requestOccurrences()
{
    const auto [start, end] = page->generatedRange(loader.zone(), loader.firstWeekday());
    repeats.generateInstances(start, end);
}

// What repeats may be another one, too.
void CalendarPageLoader::State::refresh()
{
    if (page) requestOccurrences();
    forgetAll();
}

void CalendarPageLoader::State::forgetAll()
{
    known.clear();
    if (!page) return;
    isOutdated = reading != nullptr;
    if (!isOutdated) read(*page);
}

void CalendarPageLoader::State::read(const CalendarPage &which)
{
    struct Answer {
        Content content;
        bool isAsBefore = false;
    };
    reading = std::make_shared<Reading>();
    isOutdated = false;
    const auto answer = std::make_shared<Answer>();
    const auto block = [answer, which, before = shown, userID = kit.account().currentUserID(),
                        hidden = pendingDeletes.taskIDs()](ObjectContext &context) -> Result<void> {
        auto content = readCalendarPage(which, userID, hidden, context);
        if (!content) return content.error();
        answer->isAsBefore = before && *before == *content;
        answer->content = std::make_shared<const CalendarPageContent>(std::move(*content));
        return {};
    };
    KWCoreDataService{kit.manager()}.async_perform(
        block, [this, which, answer, waiting = std::weak_ptr{reading}](const Result<void> &done) {
            if (waiting.expired()) return;
            reading.reset();
            take(which, done, answer->content, answer->isAsBefore);
        });
}

void CalendarPageLoader::State::take(const CalendarPage &which, const Result<void> &done, Content content,
                                     bool isAsBefore)
{
    const bool isAskedFor = which == *page;
    if (isOutdated) {
        read(*page);
        return;
    }
    if (isAskedFor && !done) {
        Q_EMIT loader.failed(done.error().sentence);
        return;
    }
    if (done) known.push_back(isAsBefore ? shown : content);
    if (isAskedFor && !isAsBefore) show(std::move(content));
    if (isAskedFor) Q_EMIT loader.succeeded();
    if (page && !reading && done) readNeighbours();
}

// So that turning the page shows it at once.
void CalendarPageLoader::State::readNeighbours()
{
    for (const int pages : {1, -1}) {
        const CalendarPage neighbour = page->moved(pages, loader.firstWeekday());
        if (std::ranges::none_of(known, [&](const Content &each) { return each->page == neighbour; }))
            return read(neighbour);
    }
}

void CalendarPageLoader::State::show(Content content)
{
    shown = std::move(content);
    Q_EMIT loader.loaded(*shown);
}

CalendarPageLoader::CalendarPageLoader(OrvaneKit &kit, KWRepeatInstanceService &repeats, const CXClock &clock)
    : m_state(std::make_unique<State>(*this, kit, repeats, clock))
{
}

CalendarPageLoader::~CalendarPageLoader() = default;

void CalendarPageLoader::load(const CalendarPage &page)
{
    if (!m_state->kit.account().isSignedIn()) return;
    m_state->page = page;
    m_state->requestOccurrences();
    const auto first = firstWeekday();
    std::erase_if(m_state->known, [around = std::array{page, page.moved(1, first), page.moved(-1, first)}](
                                      const State::Content &each) {
        return std::ranges::find(around, each->page) == around.end();
    });
    const auto found = std::ranges::find(m_state->known, page, [](const auto &each) { return each->page; });
    if (found == m_state->known.end()) {
        m_state->read(page);
        return;
    }
    m_state->reading.reset();
    if (*found != m_state->shown) m_state->show(*found);
    Q_EMIT succeeded();
    if (m_state->page == page && !m_state->reading) m_state->readNeighbours();
}

void CalendarPageLoader::stop()
{
    m_state->page.reset();
    m_state->shown.reset();
    m_state->known.clear();
    m_state->reading.reset();
}

Day CalendarPageLoader::today() const { return m_state->clock.today(); }

CXTimeZone CalendarPageLoader::zone() const { return m_state->clock.zone(); }

std::chrono::weekday CalendarPageLoader::firstWeekday() const
{
    return KWUserSettings::firstWeekdayOfUser(m_state->kit.account().currentUserID(), m_state->kit.context());
}
