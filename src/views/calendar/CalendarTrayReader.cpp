#include "views/calendar/CalendarTrayReader.h"

#include "model/OrvaneKit.h"
#include "model/events/NotificationNames.h"
#include "model/records/KWCalendarDisplayConfiguration.h"
#include "model/records/KWSmartProject.h"
#include "model/store/KWListDataFetcher.h"
#include "views/calendar/CalendarTray.h"

CalendarTrayReader::CalendarTrayReader(CalendarTray &tray, OrvaneKit &kit)
    : m_tray(tray), m_kit(kit), m_pendingDeletes(kit.center(), [this] { read(); })
{
    m_registration = kit.bus().registerEventBus([this](const StoreChange &change) {
        if (change.touches(RecordKind::Task) || change.touches(RecordKind::Project)) read();
    });
    m_observation = kit.center().addObserver(KWCalendarDisplayConfigurationDidChangeNotification,
                                             [this](const KWNotification &) { read(); });
    connect(&m_tray, &CalendarTray::visibilityChanged, this, &CalendarTrayReader::read);
}

void CalendarTrayReader::read()
{
    m_latest.reset();
    if (!m_tray.isVisible()) return;
    m_latest = std::make_shared<int>();
    const auto rows = std::make_shared<QList<KWTaskListItemModel>>();
    const ListDataRequest request{.userID = m_kit.account().currentUserID(),
                                  .selection =
                                      KWListIdentifier::smartProject(KWSmartProject::all().identifier())};
    const auto read = [rows, request, &clock = m_kit.clock()](ObjectContext &context) -> Result<void> {
        auto all = KWListDataFetcher{clock}.reloadDataModel(request, context.connection());
        if (!all) return all.error();
        const auto hidden = KWCalendarDisplayConfiguration::ofUser(request.userID, context).hiddenLists;
        erase_if(*all, [&hidden](const KWTaskListItemModel &task) {
            return task.startDate.has_value() || hidden.contains(task.projectID);
        });
        *rows = std::move(*all);
        return {};
    };
    const auto show = [this, rows, latest = std::weak_ptr{m_latest}](const Result<void> &done) {
        if (latest.expired()) return;
        if (!done) return Q_EMIT failed(done.error().sentence);
        erase_if(*rows,
                 [this](const KWTaskListItemModel &task) { return m_pendingDeletes.containsTask(task.sid); });
        m_tray.setTasks(*rows);
    };
    KWCoreDataService{m_kit.manager()}.async_perform(read, show);
}
