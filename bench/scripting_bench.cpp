// What other programs ask, with 100,000 stored tasks, 20,000 of them open and 200 due: the answers alone, and
// one on the session bus with another connection that waits for it (run it in dbus-run-session).

#include "Account.h"
#include "cli/ListSections.h"
#include "integration/scripting/ScriptingRoom.h"
#include "model/records/KWTask.h"
#include "platform/ScriptingBus.h"

#include <QCoreApplication>
#include <QDBusMessage>

#include <benchmark/benchmark.h>

#include <cstdlib>

using namespace Qt::StringLiterals;

namespace {

constexpr int storedTasks = 100'000;
constexpr int openTasks = 20'000;
constexpr int dueTasks = 200;
constexpr int lists = 200;

struct LargeAccount : Account {
    ListSections sections;
    FocusStartPort focus;
    UsageEventsPort usage;
    TaskToolsPort tools;
    ScriptOpenPort windows;
    ScriptingRoom room{{*kit, sections, focus, usage}, tools, windows};

    LargeAccount()
    {
        kit->account().refreshCurrentUser();
        fill([this](ObjectContext &context) { insertTasks(context); });
    }

    void insertTasks(ObjectContext &context)
    {
        const QStringList projects = insertLists(lists, context);
        for (int i = 0; i < storedTasks; ++i) {
            KWTaskModel model;
            model.userID = userID();
            model.title = u"Call the venue about chair number %1"_s.arg(i * 7919 % storedTasks);
            model.projectID = projects.at(i % lists);
            model.isAllDay = true;
            const Day day = clock.today() + std::chrono::days{i < dueTasks ? -(i % 4) : 30 + i % 60};
            if (i < dueTasks || i % 3) model.startDate = clock.zone().startOfDay(day);
            if (i >= openTasks) {
                model.status = KWTaskStatusCompleted;
                model.completionDate = clock.now() - std::chrono::minutes{i};
            }
            context.insert<KWTask>(std::move(model));
        }
    }
};

LargeAccount &account()
{
    static int arguments = 0;
    static QCoreApplication application{arguments, nullptr};
    static LargeAccount account;
    return account;
}

void answerOf(benchmark::State &state, const QString &command, const QVariant &parameter)
{
    const ScriptSurroundings &with = account().room.with();
    for (auto _ : state) {
        const auto answer = performScriptCommand(command, with, {parameter});
        if (!answer || answer->size() < 100) std::abort();
        benchmark::DoNotOptimize(answer);
    }
}

void today(benchmark::State &state) { answerOf(state, u"today"_s, {}); }
BENCHMARK(today)->Unit(benchmark::kMillisecond);
void next7days(benchmark::State &state) { answerOf(state, u"next7days"_s, {}); }
BENCHMARK(next7days)->Unit(benchmark::kMillisecond);
void search(benchmark::State &state) { answerOf(state, u"search"_s, u"venue chair"_s); }
BENCHMARK(search)->Unit(benchmark::kMillisecond);
void projects(benchmark::State &state) { answerOf(state, u"projects"_s, {}); }
BENCHMARK(projects)->Unit(benchmark::kMillisecond);

void tenForADesktop(benchmark::State &state)
{
    for (auto _ : state) {
        const QList<FoundTask> found = account().room.search().show(u"ven"_s, SearchProvider::mostResults);
        if (found.size() != SearchProvider::mostResults) std::abort();
    }
}
BENCHMARK(tenForADesktop)->Unit(benchmark::kMillisecond);

QDBusConnection connectionNamed(const QString &party)
{
    return QDBusConnection::connectToBus(QDBusConnection::SessionBus, party);
}

void todayOnTheBus(benchmark::State &state)
{
    LargeAccount &large = account();
    QDBusConnection client = connectionNamed(u"client"_s);
    QDBusConnection caller = connectionNamed(u"caller"_s);
    if (!client.isConnected()) return state.SkipWithError("there is no session bus");
    ScriptingBus bus{[&client] { return client; }};
    bus.appear();
    bus.open(large.room, *large.kit, large.clock);
    QDBusMessage call = QDBusMessage::createMethodCall(client.baseService(), ScriptingObject::path,
                                                       ScriptingObject::interface, u"Today"_s);
    for (auto _ : state) {
        const QDBusMessage answer = caller.call(call, QDBus::BlockWithGui);
        if (answer.arguments().value(0).toString().size() < 100) std::abort();
    }
    bus.close();
}
BENCHMARK(todayOnTheBus)->Unit(benchmark::kMillisecond)->UseRealTime();

} // namespace
