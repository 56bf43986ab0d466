#include "capture/NewTaskService.h"

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
    NewTaskReferees referees{m_kit};
    return recognize(text, context, referees);
}

TitleRecognition NewTaskService::recognize(const QString &text, const NewTaskContext &context,
                                           NewTaskReferees &referees)
{
    referees.setPreset(context);
    referees.project.setNlp(std::nullopt);
    RecognitionOptions options = context.recognition;
    options.projectID = referees.projectID();
    options.isProjectManual = referees.project.manual().has_value();
    TitleRecognition found = recognizer().recognize(text, options);
    referees.setNlp(found, text);
    return found;
}

QList<KWNotificationCenter::Observation>
NewTaskService::observeMeaning(const std::function<void()> &changed) const
{
    QList<KWNotificationCenter::Observation> observations;
    for (const QString &name :
         {KWSmartRecognitionConfigurationDidChangeNotification, KWTaskDefaultConfigurationChangedNotification,
          KWNewMinuteComesNotification, KWNewDayComesNotification})
        observations.append(
            m_kit.center().addObserver(name, [changed](const KWNotification &) { changed(); }));
    return observations;
}

NewTaskContext NewTaskService::contextOf(const KWListIdentifier &list) const
{
    return newTaskContextOf(list, m_kit.account().currentUserID(), m_kit.context());
}

NewTaskDraft NewTaskService::compose(const QString &text, const NewTaskContext &context)
{
    NewTaskReferees referees{m_kit};
    return compose(text, context, referees);
}

NewTaskDraft NewTaskService::compose(const QString &text, const NewTaskContext &context,
                                     NewTaskReferees &referees)
{
    NewTaskDraft draft;
    draft.recognition = recognize(text, context, referees);
    draft.task.title = draft.recognition.title;
    draft.task.userID = m_kit.account().currentUserID();

    for (const QString &label : context.presetTagNames + draft.recognition.tags) {
        const QString name = KWTag::nameForLabel(label);
        if (draft.task.tags.contains(name)) continue;
        draft.task.tags.append(name);
        draft.tagLabels.append(label);
    }

    const std::optional<RecognizedList> &list = draft.recognition.parsedProjectResult;
    if (list && list->isNew() && !referees.project.manual()) draft.newListName = list->name;
    draft.task.projectID = referees.projectID();
    if (!context.presetList || draft.task.projectID == *context.presetList) {
        draft.task.columnID = context.presetColumn.value_or(QString{});
        draft.task.assignee = context.presetAssignee.value_or(KWTaskAssignedToNobody);
    }
    if (const auto &assignee = draft.recognition.assignedTeamworker)
        draft.task.assignee = assignee->userServerID;
    decideKindAndPriority(draft.task, context, referees);
    referees.date.finalWithUsesDefault(true).applyTo(draft.task, m_kit.clock().zone().identifier());
    return draft;
}

void NewTaskService::decideKindAndPriority(KWTaskModel &task, const NewTaskContext &context,
                                           const NewTaskReferees &referees) const
{
    const KWProject *project = m_kit.context().find<KWProject>(task.projectID);
    const bool isNotesList = project && project->isNoteKind();
    if (isNotesList || context.isNotedFilter) task.kind = KWTaskKindNote;
    task.priority = referees.priority.priority(isNotesList             ? NewTaskPlace::NotesList
                                               : context.isNotedFilter ? NewTaskPlace::NotesFilter
                                                                       : NewTaskPlace::TaskList);
}

Result<KWTaskModel> NewTaskService::add(const QString &text, const NewTaskContext &context)
{
    const Result<MadeTasks> made = save(compose(text, context));
    if (!made) return made.error();
    return made->tasks.first();
}

Result<NewTaskService::MadeTasks> NewTaskService::save(const NewTaskDraft &draft)
{
    if (!m_kit.account().isSignedIn()) return nobodyIsSignedIn();
    if (!draft.task.title.isEmpty()) return saveAll({draft});
    const QList<RecognizedPiece> &pieces = draft.recognition.pieces;
    return pieces.isEmpty() ? blankRefusal() : onlyPiecesRefusal(pieces);
}

bool NewTaskService::shouldCreateMutilTask(const QString &text) const { return holdsSeveralLines(text); }

Result<NewTaskService::MadeTasks>
NewTaskService::createMutilTask(const QString &text, const NewTaskContext &context, NewTaskReferees &referees)
{
    if (!m_kit.account().isSignedIn()) return nobodyIsSignedIn();
    const QStringList lines = taskLines(text);
    if (lines.isEmpty()) return blankRefusal();
    if (lines.size() > mostTasksAtOnce)
        return Error{KWLocalizedString("Add at most %1 tasks at once: this text has %2 lines.")
                         .arg(QLocale{}.toString(mostTasksAtOnce), QLocale{}.toString(lines.size()))};
    QList<NewTaskDraft> drafts;
    for (const QString &each : lines)
        if (NewTaskDraft draft = compose(each, context, referees); !draft.task.title.isEmpty())
            drafts.append(std::move(draft));
    if (drafts.isEmpty())
        return Error{
            KWLocalizedString("Type titles for the tasks: nothing in these lines is left to be one.")};
    return saveAll(drafts);
}

Result<NewTaskService::MadeTasks> NewTaskService::saveAll(const QList<NewTaskDraft> &drafts)
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
    NewTaskReferees referees{m_kit};
    TitleRecognition recognition = recognize(text, context, referees);
    recognition.date.dateTimeReminderModel = referees.date.nlp();
    return dryRunObject(recognition, m_kit.clock().zone());
}
