#include "app/LinkOpener.h"

#include "model/account/KWAccountManager.h"
#include "model/events/NotificationNames.h"
#include "model/records/KWCalSubscription.h"
#include "model/records/KWCalSubscriptionEvent.h"
#include "model/records/KWCalendarDisplayConfiguration.h"
#include "model/records/KWHabit.h"
#include "model/records/KWProject.h"
#include "model/records/KWRepeatInstance.h"
#include "model/records/KWSmartProject.h"
#include "model/records/KWTask.h"
#include "model/settings/KWLocalizedString.h"

namespace {

// By its identifier, which begins with "smart.", or by what comes after that.
const KWSmartProject *smartProjectNamed(const QString &name)
{
    const KWSmartProject *smart = KWSmartProject::withIdentifier(name);
    return smart ? smart : KWSmartProject::withIdentifier(QStringLiteral("smart.") + name);
}

// Of what repeats since long ago, the next one from today on, as far as it is stored.
Instant occurrenceToShow(const KWCalSubscriptionEventModel &event, ObjectContext &context)
{
    const CXClock &clock = context.clock();
    const Instant today = clock.zone().startOfDay(clock.today());
    if (event.repeatRule.isEmpty() || *event.startDate >= today) return *event.startDate;
    const auto later =
        KWRepeatInstance::instancesOfUser(event.userID, {event.sid}, today, Instant::max(), context);
    if (later)
        for (const KWRepeatInstance::Start &each : *later)
            if (!each.isDeleted && !event.exDates.contains(each.startDate)) return each.startDate;
    return *event.startDate;
}

} // namespace

KWListIdentifier listShowing(const KWTaskModel &task)
{
    if (task.isTrashed) return KWListIdentifier::smartProject(KWSmartProject::trash().identifier());
    if (task.status == KWTaskStatusCompleted)
        return KWListIdentifier::smartProject(KWSmartProject::completed().identifier());
    if (task.status == KWTaskStatusAbandoned)
        return KWListIdentifier::smartProject(KWSmartProject::abandoned().identifier());
    return KWListIdentifier::project(task.projectID);
}

LinkOpener::LinkOpener(KWCoreDataManager &manager, KWAccountManager &account, KWNotificationCenter &center,
                       LinkTarget &target)
    : m_manager(manager)
    , m_account(account)
    , m_target(target)
    , m_signIn(
          center.addObserver(KWUserDidSignInNotification, [this](const KWNotification &) { openWaiting(); }))
{
}

void LinkOpener::open(const QString &link)
{
    if (!m_account.isSignedIn()) {
        m_waiting.append(link);
        return;
    }
    const auto parsed = OrvaneLink::parse(link);
    Result<void> opened = Error{KWLocalizedString("Orvane does not understand this link.")};
    if (parsed) switch (parsed->kind) {
        case OrvaneLink::Kind::Task:
            opened = openTask(parsed->id);
            break;
        case OrvaneLink::Kind::List:
            opened = openList(parsed->id);
            break;
        case OrvaneLink::Kind::Habit:
            opened = openHabit(parsed->id);
            break;
        case OrvaneLink::Kind::Event:
            opened = openEvent(parsed->id);
            break;
        }
    if (!opened) m_target.showMessage(opened.error().sentence);
}

Result<void> LinkOpener::openTask(const QString &taskID)
{
    const KWTask *task = m_manager.MR_defaultContext().find<KWTask>(taskID);
    if (!task || task->isDeleted() || task->model().userID != m_account.currentUserID())
        return Error{KWLocalizedString("The task of this link is not here any more.")};
    const KWListIdentifier list = listShowing(task->model());
    const KWProject *project = task->project();
    if (list.type == KWListIdentifierType::Project && (!project || project->isClosed()))
        return Error{KWLocalizedString("The task of this link is in a list that is archived.")};
    m_target.showTask(taskID, list);
    return {};
}

Result<void> LinkOpener::openList(const QString &listID)
{
    const QString user = m_account.currentUserID();
    const KWSmartProject *named = smartProjectNamed(listID);
    const bool isInbox = named && named->isInbox();
    const KWProject *project =
        m_manager.MR_defaultContext().find<KWProject>(isInbox ? KWProject::inboxIDOfUser(user) : listID);
    if (project && project->isNotDeleted() && project->model().userID == user) {
        if (project->isClosed()) return Error{KWLocalizedString("The list of this link is archived.")};
        m_target.showList(KWListIdentifier::project(project->sid()));
        return {};
    }
    if (!named) return Error{KWLocalizedString("The list of this link is not here any more.")};
    if (!named->hasPage()) return Error{KWLocalizedString("The list of this link cannot be shown yet.")};
    m_target.showList(KWListIdentifier::smartProject(named->identifier()));
    return {};
}

Result<void> LinkOpener::openEvent(const QString &eventID)
{
    ObjectContext &context = m_manager.MR_defaultContext();
    const QString user = m_account.currentUserID();
    const auto *event = context.find<KWCalSubscriptionEvent>(eventID);
    const auto *calendar = event ? context.find<KWCalSubscription>((*event)->subscriptionID) : nullptr;
    const bool isHere = event && event->isNotDeleted() && event->model().userID == user &&
                        (*event)->startDate && calendar && calendar->isNotDeleted();
    if (!isHere) return Error{KWLocalizedString("The event of this link is not here any more.")};
    const auto *shown = context.find<KWCalendarDisplayConfiguration>(user);
    if (shown && (*shown)->hiddenCalendars.contains(calendar->sid()))
        return Error{KWLocalizedString("The event of this link is in a calendar that is hidden.")};
    m_target.showEvent(eventID, shown && !(*shown)->showsRepeats ? *(*event)->startDate
                                                                 : occurrenceToShow(event->model(), context));
    return {};
}

Result<void> LinkOpener::openHabit(const QString &habitID)
{
    const KWHabit *habit = m_manager.MR_defaultContext().find<KWHabit>(habitID);
    if (!habit || habit->isDeleted() || habit->model().userID != m_account.currentUserID())
        return Error{KWLocalizedString("The habit of this link is not here any more.")};
    m_target.showHabit(habitID);
    return {};
}

void LinkOpener::openWaiting()
{
    for (const QString &each : std::exchange(m_waiting, {}))
        open(each);
}
