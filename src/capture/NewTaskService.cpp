#include "capture/NewTaskService.h"

#include "capture/KWNewTaskPriorityReferee.h"
#include "capture/KWNewTaskProjectReferee.h"
#include "capture/NewTaskContextOfList.h"
#include "capture/NewTaskWriter.h"
#include "capture/RecognitionJson.h"
#include "capture/TaskLines.h"
#include "model/OrvaneKit.h"
#include "model/events/NotificationNames.h"
#include "model/records/KWProject.h"
#include "model/records/KWTag.h"
#include "model/records/KWTask.h"
#include "model/records/KWTeamworker.h"
#include "model/records/OneLine.h"
#include "model/settings/KWLocalizedString.h"

#include <QJsonObject>

using namespace Qt::StringLiterals;

namespace {

constexpr qsizetype mostTasksAtOnce = 10'000;

QHash<QString, NameIndex> membersByList(const QList<KWProjectModel> &projects, ObjectContext &context)
{
    QHash<QString, QList<KWTeamworkerModel>> people;
    for (const KWTeamworker *each :
         KWTeamworker::sortedByName(context.fetch<KWTeamworker>({.where = "isDeleted = 0"})))
        people[(*each)->projectID].append(each->model());
    QHash<QString, NameIndex> members;
    for (const KWProjectModel &each : projects)
        if (each.isShared) members.insert(each.sid, NameIndex::ofMembers(people.value(each.sid)));
    return members;
}

RecognitionSettings settingsOf(OrvaneKit &kit)
{
    const QString user = kit.account().currentUserID();
    QList<KWProjectModel> projects;
    for (const KWProject *each : KWProject::orderedOpenProjects(user, kit.context()))
        projects.append(each->model());
    return {KWSmartTimeModel::ofSettings(kit.account().userSettings()),
            KWSmartRecognitionConfiguration::ofUser(user, kit.defaults()),
            kit.account().taskDefaultConfiguration(), NameIndex::ofLists(projects),
            membersByList(projects, kit.context())};
}

bool mattersToRecognition(const StoreChange &change)
{
    return change.touches(RecordKind::Project) || change.touches(RecordKind::Teamworker) ||
           change.touches(RecordKind::User) || change.touches(RecordKind::UserSettings);
}

Error nobodyIsSignedIn()
{
    return {KWLocalizedString("Nobody is signed in, so there is no list to put the task into.")};
}

Error blankRefusal()
{
    return {KWLocalizedString("Type a title for the task: nothing but white space was entered.")};
}

Error onlyPiecesRefusal(const QList<RecognizedPiece> &pieces)
{
    constexpr qsizetype shown = 3;
    QStringList texts;
    for (const RecognizedPiece &each : pieces.first(std::min(shown, pieces.size())))
        texts.append(u"“%1”"_s.arg(onOneLine(each.text.left(60))));
    if (pieces.size() > shown) texts.append(u"…"_s);
    const char *sentence =
        pieces.size() == 1
            ? "Type a title for the task: %1 says more about it, but nothing is left to be its title."
            : "Type a title for the task: %1 say more about it, but nothing is left to be its title.";
    return {KWLocalizedString(sentence).arg(texts.join(u", "_s))};
}

} // namespace

NewTaskService::NewTaskService(OrvaneKit &kit) : m_kit(kit), m_candidates(kit)
{
    m_recordsChanged = kit.bus().registerEventBus([this](const StoreChange &change) {
        if (mattersToRecognition(change)) m_recognizer.reset();
    });
    for (const QString &name :
         {KWUserDidSignInNotification, KWUserDidSignOutNotification,
          KWDataDidChangeOutsideMainAppNotification, KWSmartRecognitionConfigurationDidChangeNotification,
          KWTaskDefaultConfigurationChangedNotification})
        m_settingsChanged.append(
            kit.center().addObserver(name, [this](const KWNotification &) { m_recognizer.reset(); }));
}

const TitleRecognizer &NewTaskService::recognizer()
{
    if (!m_recognizer) m_recognizer.emplace(m_kit.clock(), settingsOf(m_kit));
    return *m_recognizer;
}

TitleRecognition NewTaskService::recognize(const QString &text, const NewTaskContext &context)
{
    RecognitionOptions options = context.recognition;
    options.projectID = projectIDFor(context);
    options.isProjectManual = context.manualList.has_value();
    return recognizer().recognize(text, options);
}

KWNotificationCenter::Observation NewTaskService::observeSettings(std::function<void()> changed) const
{
    return m_kit.center().addObserver(KWSmartRecognitionConfigurationDidChangeNotification,
                                      [changed = std::move(changed)](const KWNotification &) { changed(); });
}

NewTaskContext NewTaskService::contextOf(const KWListIdentifier &list) const
{
    return newTaskContextOf(list, m_kit.account().currentUserID(), m_kit.context());
}

NewTaskDraft NewTaskService::compose(const QString &text, const NewTaskContext &context)
{
    NewTaskDraft draft;
    draft.recognition = recognize(text, context);
    draft.task.title = draft.recognition.title;
    draft.task.userID = m_kit.account().currentUserID();

    for (const QString &label : context.presetTagNames + draft.recognition.tags) {
        const QString name = KWTag::nameForLabel(label);
        if (draft.task.tags.contains(name)) continue;
        draft.task.tags.append(name);
        draft.tagLabels.append(label);
    }

    const std::optional<RecognizedList> &list = draft.recognition.list;
    if (list && list->isNew() && !context.manualList) draft.newListName = list->name;
    draft.task.projectID = projectIDFor(context, list);
    if (!context.presetList || draft.task.projectID == *context.presetList) {
        draft.task.columnID = context.presetColumn.value_or(QString{});
        draft.task.assignee = context.presetAssignee.value_or(KWTaskAssignedToNobody);
    }
    if (const auto &assignee = draft.recognition.assignee) draft.task.assignee = assignee->userServerID;
    decideKindAndPriority(draft, context);

    KWNewTaskDateReferee dates{m_kit.clock(), m_kit.center(), currentDefaults()};
    present(draft.recognition, text, context, dates);
    dates.finalWithUsesDefault(true).applyTo(draft.task, m_kit.clock().zone().identifier());
    return draft;
}

QString NewTaskService::projectIDFor(const NewTaskContext &context,
                                     const std::optional<RecognizedList> &named) const
{
    KWNewTaskProjectReferee referee;
    referee.setManual(context.manualList);
    if (named) referee.setNlp(named->id);
    referee.setPreset(context.presetList);
    return referee.projectID().value_or(m_kit.account().defaultAddtoList());
}

void NewTaskService::decideKindAndPriority(NewTaskDraft &draft, const NewTaskContext &context) const
{
    const KWProject *project = m_kit.context().find<KWProject>(draft.task.projectID);
    const bool isNotesList = project && project->isNoteKind();
    if (isNotesList || context.isNotedFilter) draft.task.kind = KWTaskKindNote;

    KWNewTaskPriorityReferee referee{m_kit.center(),
                                     [defaults = currentDefaults()] { return defaults().priority; }};
    referee.setManual(context.manualPriority);
    referee.setNlp(draft.recognition.priority);
    referee.setPreset(context.presetPriority);
    draft.task.priority = referee.priority(isNotesList             ? NewTaskPlace::NotesList
                                           : context.isNotedFilter ? NewTaskPlace::NotesFilter
                                                                   : NewTaskPlace::TaskList);
}

void NewTaskService::present(const TitleRecognition &recognition, const QString &text,
                             const NewTaskContext &context, KWNewTaskDateReferee &referee) const
{
    referee.setWithNlp(recognition.date.dateTimeReminderModel, text);
    referee.setManual(context.manualDate);
    if (context.presetDay) referee.setPresetDay(*context.presetDay);
    if (context.presetsNoDate) referee.setPreset(KWTaskDateTimeReminderModel{});
}

KWNewTaskDateReferee::CurrentDefaults NewTaskService::currentDefaults() const
{
    return [this] { return m_kit.account().taskDefaultConfiguration(); };
}

Result<KWTaskModel> NewTaskService::add(const QString &text, const NewTaskContext &context)
{
    if (!m_kit.account().isSignedIn()) return nobodyIsSignedIn();
    if (onOneLine(text).isEmpty()) return blankRefusal();
    const NewTaskDraft draft = compose(text, context);
    if (draft.task.title.isEmpty()) return onlyPiecesRefusal(draft.recognition.pieces);
    const Result<MadeTasks> made = save({draft});
    if (!made) return made.error();
    return made->tasks.first();
}

bool NewTaskService::shouldCreateMutilTask(const QString &text) const { return holdsSeveralLines(text); }

Result<NewTaskService::MadeTasks> NewTaskService::createMutilTask(const QString &text,
                                                                  const NewTaskContext &context)
{
    if (!m_kit.account().isSignedIn()) return nobodyIsSignedIn();
    const QStringList lines = taskLines(text);
    if (lines.isEmpty()) return blankRefusal();
    if (lines.size() > mostTasksAtOnce)
        return Error{KWLocalizedString("Add at most %1 tasks at once: this text has %2 lines.")
                         .arg(QLocale{}.toString(mostTasksAtOnce), QLocale{}.toString(lines.size()))};
    QList<NewTaskDraft> drafts;
    for (const QString &each : lines)
        if (NewTaskDraft draft = compose(each, context); !draft.task.title.isEmpty())
            drafts.append(std::move(draft));
    if (drafts.isEmpty())
        return Error{
            KWLocalizedString("Type titles for the tasks: nothing in these lines is left to be one.")};
    return save(drafts);
}

Result<NewTaskService::MadeTasks> NewTaskService::save(const QList<NewTaskDraft> &drafts)
{
    const bool goesLast = m_kit.defaults().value(Settings::newTaskPosition) == u"bottom";
    MadeTasks made;
    const Result<void> saved =
        KWCoreDataService{m_kit.manager()}.sync_save([&](ObjectContext &context) -> Result<void> {
            NewTaskWriter writer{context, goesLast ? ListEnd::Bottom : ListEnd::Top};
            Result<QList<KWTaskModel>> tasks = writer.write(drafts);
            if (!tasks) return tasks.error();
            made.tasks = *std::move(tasks);
            made.undo = UndoToken::of(context);
            return {};
        });
    if (!saved) return saved.error();
    return made;
}

QJsonObject NewTaskService::dryRun(const QString &text, const NewTaskContext &context)
{
    TitleRecognition recognition = recognize(text, context);
    KWNewTaskDateReferee dates{m_kit.clock(), m_kit.center(), currentDefaults()};
    present(recognition, text, context, dates);
    recognition.date.dateTimeReminderModel = dates.nlp();
    return dryRunObject(recognition, m_kit.clock().zone());
}
