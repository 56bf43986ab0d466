#include "cli/DemoAccount.h"

#include "model/OrvaneKit.h"
#include "model/records/KWChecklistItem.h"
#include "model/records/KWProject.h"
#include "model/records/KWProjectGroup.h"
#include "model/records/KWTag.h"
#include "model/records/KWTask.h"

#include <optional>
#include <vector>

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

namespace {

enum class State { Open, Done };

/// Days from today, and minutes of the day where there is a time.
struct When {
    int day;
    std::optional<std::chrono::minutes> from = std::nullopt;
    std::optional<std::chrono::minutes> until = std::nullopt;
};

struct Item {
    QString title;
    State state;
};

struct DemoTask {
    QString title;
    std::optional<When> when = std::nullopt;
    KWTaskPriority priority = KWTaskPriorityNone;
    QStringList tags{};
    QString repeatRule{};
    QString content{};
    std::vector<Item> items{};
    State state = State::Open;
};

struct DemoList {
    QString name;
    QString color;
    QString folder;
    std::vector<DemoTask> tasks;
};

constexpr std::chrono::minutes at(int hour, int minute = 0) { return hour * 60min + minute * 1min; }

std::vector<DemoTask> inboxTasks()
{
    return {
        {.title = u"Send the revised contract"_s,
         .when = When{-1, at(16)},
         .priority = KWTaskPriorityHigh,
         .tags = {u"deep-work"_s}},
        {.title = u"Renew library card"_s, .when = When{-3}},
        {.title = u"Ask about the bike repair"_s},
        {.title = u"Find a frame for the map"_s},
    };
}

std::vector<DemoList> demoLists()
{
    return {
        {u"Groceries"_s,
         u"#e79a0c"_s,
         u"Home"_s,
         {
             {.title = u"Buy tomatoes, basil and bread"_s,
              .when = When{0, at(18)},
              .priority = KWTaskPriorityLow,
              .tags = {u"errand"_s}},
             {.title = u"Order coffee beans"_s, .when = When{2}, .tags = {u"errand"_s}},
             {.title = u"Fill the pantry list"_s,
              .when = When{4, at(10)},
              .repeatRule = u"RRULE:FREQ=WEEKLY"_s},
             {.title = u"Oat milk"_s},
             {.title = u"Rice and lentils"_s},
             {.title = u"Dish soap"_s, .tags = {u"errand"_s}},
         }},
        {u"Garden"_s,
         u"#2b9a66"_s,
         u"Home"_s,
         {
             {.title = u"Water the seedlings"_s,
              .when = When{0},
              .repeatRule = u"RRULE:FREQ=DAILY;INTERVAL=2"_s},
             {.title = u"Cut back the roses"_s, .when = When{3}},
             {.title = u"Sort the seed box"_s},
         }},
        {u"Client launch"_s,
         u"#3e8ef7"_s,
         {},
         {
             {.title = u"Write the launch announcement"_s,
              .when = When{0, at(9, 30), at(11)},
              .priority = KWTaskPriorityHigh,
              .tags = {u"deep-work"_s},
              .repeatRule = u"RRULE:FREQ=MONTHLY"_s,
              .content = u"One page for the newsletter and a short version for the site. "
                         "Keep the opening line from the draft."_s,
              .items = {{u"Collect quotes from the team"_s, State::Done},
                        {u"Agree on the date"_s, State::Done},
                        {u"First draft"_s, State::Open},
                        {u"Two screenshots"_s, State::Open}}},
             {.title = u"Review the budget"_s,
              .when = When{0, at(14)},
              .priority = KWTaskPriorityMedium,
              .repeatRule = u"RRULE:FREQ=WEEKLY"_s},
             {.title = u"Walk through the demo"_s,
              .when = When{1, at(10)},
              .priority = KWTaskPriorityHigh,
              .tags = {u"deep-work"_s}},
             {.title = u"Book the meeting room"_s, .when = When{1}, .tags = {u"errand"_s}},
             {.title = u"Check every link of the site"_s, .when = When{2, at(15)}, .tags = {u"deep-work"_s}},
             {.title = u"Prepare the press kit"_s,
              .when = When{3, at(11)},
              .priority = KWTaskPriorityMedium,
              .tags = {u"deep-work"_s}},
             {.title = u"Print the badges"_s, .when = When{4}, .tags = {u"errand"_s}},
             {.title = u"Rehearse the talk"_s,
              .when = When{5, at(9)},
              .priority = KWTaskPriorityHigh,
              .tags = {u"deep-work"_s}},
             {.title = u"Launch day"_s, .when = When{6}, .priority = KWTaskPriorityHigh},
             {.title = u"Thank the early testers"_s},
             {.title = u"Write down what we learned"_s, .tags = {u"deep-work"_s}},
             {.title = u"Archive the drafts"_s},
         }},
        {u"Reading"_s,
         u"#d6409f"_s,
         {},
         {
             {.title = u"Plan the weekend hike"_s, .when = When{0}},
             {.title = u"Return the two novels"_s, .when = When{1, at(17, 30)}},
             {.title = u"Chapter on memory models"_s, .when = When{2}, .tags = {u"deep-work"_s}},
             {.title = u"Notes on the calendar standard"_s, .when = When{5}},
             {.title = u"Essay on calm software"_s},
             {.title = u"Field guide to mosses"_s},
             {.title = u"History of clocks"_s},
             {.title = u"Poems from the library sale"_s},
             {.title = u"Long article on rivers"_s},
             {.title = u"Review of last year's list"_s, .when = When{-2}, .state = State::Done},
             {.title = u"Swap books with the neighbours"_s, .when = When{-1}, .state = State::Done},
         }},
    };
}

class DemoWriter {
public:
    DemoWriter(ObjectContext &context, QString userID)
        : m_context(context), m_userID(std::move(userID)), m_zone(context.clock().zone())
    {
    }

    void write()
    {
        for (const QString &name : {u"errand"_s, u"deep-work"_s})
            KWTag::createNewTagWithName(name, m_userID, TagUniqueness::MayExist, m_context);
        writeTasks(inboxTasks(), KWProject::inboxIDOfUser(m_userID));
        for (const DemoList &list : demoLists())
            writeTasks(list.tasks, writeList(list));
    }

private:
    std::int64_t nextOrder() { return m_order += KWSortOrderStep; }

    QString folderNamed(const QString &name)
    {
        if (name.isEmpty()) return KWProjectGroupIDUngrouped;
        if (m_folders.contains(name)) return m_folders.value(name);
        KWProjectGroupModel folder;
        folder.userID = m_userID;
        folder.name = name;
        folder.sortOrder = nextOrder();
        return m_folders[name] = m_context.insert<KWProjectGroup>(std::move(folder)).sid();
    }

    QString writeList(const DemoList &list)
    {
        KWProjectModel model;
        model.userID = m_userID;
        model.name = list.name;
        model.color = list.color;
        model.groupID = folderNamed(list.folder);
        model.sortOrder = nextOrder();
        return m_context.insert<KWProject>(std::move(model)).sid();
    }

    void writeTasks(const std::vector<DemoTask> &tasks, const QString &projectID)
    {
        for (const DemoTask &each : tasks)
            writeTask(each, projectID);
    }

    Instant instantOf(int day, std::optional<std::chrono::minutes> time) const
    {
        const Day date = m_context.clock().today() + std::chrono::days{day};
        return time ? m_zone.toInstant(LocalTime{date} + *time) : m_zone.startOfDay(date);
    }

    void writeTask(const DemoTask &task, const QString &projectID)
    {
        KWTaskModel model;
        model.userID = m_userID;
        model.projectID = projectID;
        model.title = task.title;
        (task.items.empty() ? model.content : model.desc) = task.content;
        model.priority = task.priority;
        model.tags = task.tags;
        model.repeatRule = task.repeatRule;
        model.kind = task.items.empty() ? KWTaskKindText : KWTaskKindChecklist;
        model.sortOrder = nextOrder();
        if (task.when) setDates(model, *task.when);
        if (task.state == State::Done) {
            model.status = KWTaskStatusCompleted;
            model.completionDate = model.startDate;
        }
        const KWTask &written = m_context.insert<KWTask>(std::move(model));
        for (const Item &each : task.items)
            writeItem(each, written.sid());
    }

    void setDates(KWTaskModel &model, const When &when) const
    {
        model.startDate = instantOf(when.day, when.from);
        if (when.until) model.endDate = instantOf(when.day, when.until);
        model.isAllDay = !when.from;
        model.timeZone = m_zone.identifier();
        if (when.from) model.reminders = {u"TRIGGER:PT0S"_s};
    }

    void writeItem(const Item &item, const QString &taskID)
    {
        KWChecklistItemModel model;
        model.userID = m_userID;
        model.taskID = taskID;
        model.title = item.title;
        model.sortOrder = nextOrder();
        if (item.state == State::Done) {
            model.status = KWTaskStatusCompleted;
            model.completionDate = m_context.clock().now();
        }
        m_context.insert<KWChecklistItem>(std::move(model));
    }

    ObjectContext &m_context;
    QString m_userID;
    CXTimeZone m_zone;
    QHash<QString, QString> m_folders;
    std::int64_t m_order = 0;
};

} // namespace

Result<void> fillDemoAccount(OrvaneKit &kit)
{
    if (kit.account().isSignedIn()) return {};
    if (const Result<void> opened = kit.account().openLocalAccount(QLocale{}); !opened) return opened;
    return KWCoreDataService{kit.manager()}.sync_save([&kit](ObjectContext &context) -> Result<void> {
        DemoWriter{context, kit.account().currentUserID()}.write();
        return {};
    });
}
