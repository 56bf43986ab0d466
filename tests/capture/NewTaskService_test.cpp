#include "capture/NewTaskService.h"

#include "model/events/NotificationNames.h"
#include "model/records/KWProject.h"
#include "model/records/KWTag.h"
#include "model/records/KWTask.h"
#include "model/records/KWUserSettings.h"
#include "support/StoreFixture.h"
#include "support/TestMain.h"

#include <QJsonDocument>
#include <QJsonObject>

using namespace Qt::StringLiterals;
using namespace std::chrono;

namespace {

const QString venue = u"Call the venue tomorrow 5pm !high #Errand ~Client launch"_s;

} // namespace

class NewTaskService_test : public QObject {
    Q_OBJECT

    // Made anew for every test.
    std::unique_ptr<StoreFixture> m_store;
    std::unique_ptr<NewTaskService> m_service;

    const KWTaskModel &added(const QString &text, const NewTaskContext &context = {})
    {
        const Result<KWTaskModel> task = m_service->add(text, context);
        if (!task) qFatal("%s", qUtf8Printable(task.error().sentence));
        return m_store->context().find<KWTask>(task->sid)->model();
    }
    QString refusal(const QString &text)
    {
        const Result<KWTaskModel> task = m_service->add(text);
        return task ? QString{} : task.error().sentence;
    }
    QString listOf(const KWTaskModel &task)
    {
        return m_store->context().find<KWProject>(task.projectID)->model().name;
    }
    int countOf(const char *table)
    {
        return int(
            m_store->context().number(qPrintable(u"SELECT count(*) FROM "_s + QString::fromLatin1(table))));
    }

private Q_SLOTS:
    void init();
    void cleanup();
    void savesWhatTheTitleSays();
    void isStillThereAfterARestart();
    void usesTagsAndListsThatExist();
    void putsNewTasksOnTop();
    void takesFromTheViewWhatTheTextDoesNotSay();
    void letsTheHandDecide();
    void takesTheDefaultsOfTheUser();
    void makesNotesInNotesLists();
    void goesToTheInboxWhenTheListIsGone();
    void refusesWhatLeavesNoTitle_data();
    void refusesWhatLeavesNoTitle();
    void refusesWithoutAccount();
    void losesNothingOfOddTitles_data();
    void losesNothingOfOddTitles();
    void followsListsAndSettings();
    void tellsWhatItWouldRecognise();
    void tellsTheReminderThatWouldBeSet();
};

void NewTaskService_test::init()
{
    m_store = std::make_unique<StoreFixture>("2030-05-01 09:00", "Europe/Berlin");
    m_service = std::make_unique<NewTaskService>(m_store->kit());
}

void NewTaskService_test::cleanup()
{
    m_service.reset();
    m_store.reset();
}

void NewTaskService_test::savesWhatTheTitleSays()
{
    const KWTaskModel task = added(venue);
    QCOMPARE(task.title, u"Call the venue"_s);
    QCOMPARE(task.priority, KWTaskPriorityHigh);
    QCOMPARE(task.tags, QStringList{u"errand"_s});
    QCOMPARE(listOf(task), u"Client launch"_s);
    QCOMPARE(task.startDate, at("2030-05-02 17:00", "Europe/Berlin"));
    QVERIFY(!task.isAllDay && !task.endDate);
    QCOMPARE(task.timeZone, u"Europe/Berlin"_s);
    QCOMPARE(task.reminders, QStringList{u"TRIGGER:PT0S"_s});
    QCOMPARE(task.createdTime, m_store->clock.now());
    QCOMPARE(task.userID, m_store->userID());
    const KWTag *tag = KWTag::findTagNamed(u"errand"_s, m_store->userID(), m_store->context());
    QVERIFY(tag);
    QCOMPARE(tag->model().label, u"Errand"_s);
}

void NewTaskService_test::isStillThereAfterARestart()
{
    const KWTaskModel task = added(venue);
    m_service.reset();
    m_store->reopen();
    const KWTask *found = m_store->context().find<KWTask>(task.sid);
    QVERIFY(found);
    QCOMPARE(found->model(), task);
}

void NewTaskService_test::usesTagsAndListsThatExist()
{
    const QString home = m_store->makeList(u"Home Office"_s);
    QCOMPARE(added(u"one #a ~home office tomorrow"_s).projectID, home);
    QCOMPARE(added(u"two #A ~HomeOffice"_s).projectID, home);
    QCOMPARE(countOf("tags"), 1);
    QCOMPARE(countOf("projects"), 2);

    const QString fresh = added(u"three ~Spring sale"_s).projectID;
    QCOMPARE(added(u"four ~spring SALE"_s).projectID, fresh);
    QCOMPARE(countOf("projects"), 3);
}

void NewTaskService_test::putsNewTasksOnTop()
{
    const std::int64_t first = added(u"one"_s).sortOrder;
    const std::int64_t second = added(u"two"_s).sortOrder;
    QVERIFY(second < first);
}

void NewTaskService_test::takesFromTheViewWhatTheTextDoesNotSay()
{
    NewTaskContext context;
    context.presetList = m_store->makeList(u"Work"_s);
    context.presetDay = m_store->clock.today() + days{3};
    context.presetPriority = KWTaskPriorityLow;
    context.presetTags = {u"Desk"_s};

    const KWTaskModel plain = added(u"plain"_s, context);
    QCOMPARE(listOf(plain), u"Work"_s);
    QCOMPARE(plain.startDate, at("2030-05-04 00:00", "Europe/Berlin"));
    QVERIFY(plain.isAllDay);
    QCOMPARE(plain.priority, KWTaskPriorityLow);
    QCOMPARE(plain.tags, QStringList{u"desk"_s});

    const KWTaskModel said = added(u"said today !high #desk #a ~Inbox"_s, context);
    QCOMPARE(said.projectID, KWProject::inboxIDOfUser(m_store->userID()));
    QCOMPARE(said.startDate, at("2030-05-01 00:00", "Europe/Berlin"));
    QCOMPARE(said.priority, KWTaskPriorityHigh);
    QCOMPARE(said.tags, (QStringList{u"desk"_s, u"a"_s}));
}

void NewTaskService_test::letsTheHandDecide()
{
    NewTaskContext context;
    context.manualList = m_store->makeList(u"Work"_s);
    context.manualPriority = KWTaskPriorityNone;
    context.manualDate.emplace();
    const KWTaskModel task = added(venue, context);
    QCOMPARE(listOf(task), u"Work"_s);
    QCOMPARE(task.priority, KWTaskPriorityNone);
    QVERIFY(!task.startDate && task.timeZone.isEmpty());
    QCOMPARE(countOf("projects"), 2);
}

void NewTaskService_test::takesTheDefaultsOfTheUser()
{
    KWUserDefaults &defaults = m_store->kit().defaults();
    defaults.set(Settings::newTaskPriority, int(KWTaskPriorityMedium));
    defaults.set(Settings::newTaskDateOffset, 1);
    m_store->kit().center().post(KWTaskDefaultConfigurationChangedNotification);
    const KWTaskModel task = added(u"plain"_s);
    QCOMPARE(task.priority, KWTaskPriorityMedium);
    QCOMPARE(task.startDate, at("2030-05-02 00:00", "Europe/Berlin"));
    QCOMPARE(task.projectID, m_store->account().defaultAddtoList());
}

void NewTaskService_test::makesNotesInNotesLists()
{
    m_store->makeList(u"Notes"_s, KWProjectKindNote);
    const KWTaskModel note = added(u"idea !high ~Notes"_s);
    QCOMPARE(note.kind, KWTaskKindNote);
    QCOMPARE(note.priority, KWTaskPriorityNone);

    NewTaskContext filter;
    filter.isNotedFilter = true;
    QCOMPARE(added(u"idea !high"_s, filter).priority, KWTaskPriorityNone);
}

void NewTaskService_test::goesToTheInboxWhenTheListIsGone()
{
    NewTaskContext context;
    context.presetList = u"gone"_s;
    QCOMPARE(added(u"one"_s, context).projectID, KWProject::inboxIDOfUser(m_store->userID()));
    context.presetList = m_store->makeList(u"Work"_s);
    m_store->context().find<KWProject>(*context.presetList)->markDelete();
    QVERIFY(m_store->context().save());
    QCOMPARE(added(u"two"_s, context).projectID, KWProject::inboxIDOfUser(m_store->userID()));
}

void NewTaskService_test::refusesWhatLeavesNoTitle_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("named");
    QTest::newRow("nothing") << QString{} << u"white space"_s;
    QTest::newRow("spaces") << u" \t \n　"_s << u"white space"_s;
    QTest::newRow("a tag") << u"#a"_s << u"“#a”"_s;
    QTest::newRow("tokens") << u"tomorrow !high #a ~Home"_s << u"“tomorrow”, “!high”, “#a”, …"_s;
}

void NewTaskService_test::refusesWhatLeavesNoTitle()
{
    QFETCH(QString, text);
    QFETCH(QString, named);
    const QString sentence = refusal(text);
    QVERIFY2(sentence.startsWith(u"Type a title for the task: "_s) && sentence.endsWith(u'.'),
             qPrintable(sentence));
    QVERIFY2(sentence.contains(named), qPrintable(sentence));
    QCOMPARE(countOf("tasks") + countOf("tags"), 0);
    QCOMPARE(countOf("projects"), 1);
}

void NewTaskService_test::refusesWithoutAccount()
{
    QVERIFY(m_store->account().signOut());
    QVERIFY(!refusal(u"Buy milk"_s).isEmpty());
    QCOMPARE(countOf("tasks"), 0);
}

void NewTaskService_test::losesNothingOfOddTitles_data()
{
    QTest::addColumn<QString>("typed");
    QTest::addColumn<QString>("title");
    const QString lone{QChar{0xD800}};
    const QString null{QChar{0}};
    QTest::newRow("100,000 characters")
        << u"buy milk "_s.repeated(11'111) + u'!' << u"buy milk "_s.repeated(11'111) + u'!';
    QTest::newRow("broken surrogates") << u"a"_s + lone + u"b"_s + lone << u"a\uFFFDb\uFFFD"_s;
    QTest::newRow("whole surrogates") << u"a😀b"_s << u"a😀b"_s;
    QTest::newRow("null") << u"a"_s + null + u"b"_s << u"a"_s + null + u"b"_s;
    QTest::newRow("line breaks") << u"a\nb\r\nc\u2028d"_s << u"a b c d"_s;
    QTest::newRow("quotes") << u"it's\"); DROP TABLE \"tasks\""_s << u"it's\"); DROP TABLE \"tasks\""_s;
}

void NewTaskService_test::losesNothingOfOddTitles()
{
    QFETCH(QString, typed);
    QFETCH(QString, title);
    const QString sid = added(typed).sid;
    m_service.reset();
    m_store->reopen();
    const KWTask *task = m_store->context().find<KWTask>(sid);
    QVERIFY(task);
    QCOMPARE(task->model().title, title);
}

void NewTaskService_test::followsListsAndSettings()
{
    const auto listNamedIn = [this](const QString &text) { return m_service->recognize(text).list->id; };
    QVERIFY(listNamedIn(u"a ~Work"_s).isEmpty());
    const QString work = m_store->makeList(u"Work"_s);
    QCOMPARE(listNamedIn(u"a ~Work"_s), work);
    m_store->context().find<KWProject>(work)->set(&KWProjectModel::name, u"Desk"_s);
    QVERIFY(m_store->context().save());
    QCOMPARE(listNamedIn(u"a ~Desk"_s), work);

    m_store->context()
        .find<KWUserSettings>(m_store->userID())
        ->set(&KWUserSettingsModel::smartTimeForEvening, 18 * 60);
    QVERIFY(m_store->context().save());
    QCOMPARE(added(u"call tomorrow evening"_s).startDate, at("2030-05-02 18:00", "Europe/Berlin"));

    KWSmartRecognitionConfiguration{.dateEnabled = false}.save(m_store->userID(), m_store->kit().defaults());
    m_store->kit().center().post(KWSmartRecognitionConfigurationDidChangeNotification);
    QCOMPARE(added(u"call tomorrow"_s).title, u"call tomorrow"_s);
}

void NewTaskService_test::tellsWhatItWouldRecognise()
{
    const QJsonObject expected = QJsonDocument::fromJson(R"({
        "title": "Call the venue",
        "tags": ["Errand"], "priority": 5, "list": "Client launch", "assignee": null,
        "date": {"start": "2030-05-02T17:00:00", "end": null, "isAllDay": false,
                 "repeatRule": "", "repeatFrom": "", "reminders": ["TRIGGER:PT0S"]},
        "recognized": [
            {"type": "date", "location": 15, "length": 12, "text": "tomorrow 5pm"},
            {"type": "priority", "location": 28, "length": 5, "text": "!high"},
            {"type": "tag", "location": 34, "length": 7, "text": "#Errand"},
            {"type": "list", "location": 42, "length": 14, "text": "~Client launch"}]})")
                                     .object();
    QVERIFY(!expected.isEmpty());
    QCOMPARE(m_service->dryRun(venue), expected);
    QCOMPARE(countOf("tasks") + countOf("tags"), 0);

    const QJsonObject plain = m_service->dryRun(u"Buy milk"_s);
    QVERIFY(plain[u"date"].isNull() && plain[u"list"].isNull());
    QCOMPARE(plain[u"priority"].toInt(-1), 0);
}

void NewTaskService_test::tellsTheReminderThatWouldBeSet()
{
    m_store->context()
        .find<KWUserSettings>(m_store->userID())
        ->set(&KWUserSettingsModel::allDayReminders, {u"TRIGGER:P0DT9H0M0S"_s});
    QVERIFY(m_store->context().save());
    const QJsonObject date = m_service->dryRun(u"pay rent tomorrow"_s)[u"date"].toObject();
    QVERIFY(date[u"isAllDay"].toBool());
    QCOMPARE(date[u"reminders"].toVariant().toStringList(), QStringList{u"TRIGGER:P0DT9H0M0S"_s});
    QCOMPARE(added(u"pay rent tomorrow"_s).reminders, QStringList{u"TRIGGER:P0DT9H0M0S"_s});
}

ORVANE_TEST(NewTaskService_test)
#include "NewTaskService_test.moc"
