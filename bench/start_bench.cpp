// Whole processes, side by side: the client's start up to its first painted list on a store of 100,000
// tasks against an empty Qt widgets window, with and without its plugins, their proportional memory, and
// `orvane add` on that store.
// Usage: start_bench [RUNS]; the programs are taken from the folder it stands in.

#include "corvexkit/time/SystemClock.h"
#include "model/OrvaneKit.h"
#include "model/records/KWProject.h"
#include "model/records/KWTask.h"

#include <QCoreApplication>
#include <QElapsedTimer>
#include <QProcess>
#include <QTemporaryDir>

#include <algorithm>
#include <cstdio>
#include <filesystem>
#include <vector>

using namespace Qt::StringLiterals;

namespace {

constexpr int storedTasks = 100'000;
constexpr int openTasks = 20'000;
constexpr int listCount = 200;

bool fillHome(const QString &folder)
{
    const SystemClock clock{CXTimeZone::utc()};
    const auto opening = OrvaneKit::open(DataFolders::locate(folder), clock);
    if (!opening.kit || !opening.kit->account().openLocalAccount(QLocale::c())) return false;
    const QString user = opening.kit->account().currentUserID();
    return bool(
        KWCoreDataService{opening.kit->manager()}.sync_save([&](ObjectContext &context) -> Result<void> {
            QStringList projects;
            for (int i = 0; i < listCount; ++i)
                projects.append(KWProject::createProjectNamed(u"List %1"_s.arg(i), user, context).sid());
            for (int i = 0; i < storedTasks; ++i) {
                KWTaskModel task;
                task.userID = user;
                task.projectID = projects.at(i % listCount);
                task.title = u"Call the venue about chair number %1"_s.arg(i);
                task.sortOrder = i * KWSortOrderStep;
                task.startDate = clock.now() + std::chrono::hours{i % 60 * 24};
                if (i >= openTasks) {
                    task.status = KWTaskStatusCompleted;
                    task.completionDate = clock.now() - std::chrono::hours{i % 730 * 24}; // two years
                }
                context.insert<KWTask>(std::move(task));
            }
            return {};
        }));
}

struct Start {
    double milliseconds;
    double megabytes; // proportional set size
};

// From the call that makes the process to the line it prints after its first paint.
Start startOf(const QString &program, const QStringList &arguments)
{
    QProcess process;
    QElapsedTimer timer;
    timer.start();
    process.start(program, arguments);
    process.waitForReadyRead();
    const double milliseconds = double(timer.nsecsElapsed()) / 1e6;
    const double megabytes =
        QString::fromLatin1(process.readAllStandardOutput()).section(u' ', 1, 1).toDouble() / 1024;
    process.waitForFinished();
    return {milliseconds, megabytes};
}

double runOf(const QString &program, const QStringList &arguments)
{
    QElapsedTimer timer;
    timer.start();
    QProcess process;
    process.start(program, arguments);
    process.waitForFinished();
    if (process.exitCode() != 0) std::fprintf(stderr, "%s", process.readAllStandardError().constData());
    return double(timer.nsecsElapsed()) / 1e6;
}

// The program at another place, where no plugins are beside it.
QString bareProgram(const QTemporaryDir &folder, const QString &program)
{
    QString bare = folder.filePath(u"orvane"_s);
    std::filesystem::create_hard_link(program.toStdString(), bare.toStdString());
    return bare;
}

double median(std::vector<double> values)
{
    std::ranges::sort(values);
    return values.at(values.size() / 2);
}

} // namespace

int main(int argc, char **argv)
{
    QCoreApplication application{argc, argv};
    qputenv("QT_QPA_PLATFORM", "offscreen");
    qputenv("ORVANE_REPORT_FIRST_PAINT", "1");
    const int runs = argc > 1 ? atoi(argv[1]) : 15;
    const QString folder = QCoreApplication::applicationDirPath() + u'/';
    const QTemporaryDir home;
    if (!fillHome(home.path())) return 1;

    const QStringList inHome{u"--home"_s, home.path()};
    const QTemporaryDir bareFolder{folder + u"bare"_s};
    const QString bare = bareProgram(bareFolder, folder + u"orvane"_s);
    std::vector<double> emptyTimes, emptySizes, clientTimes, clientSizes, bareTimes, bareSizes, ratios, adds;
    for (int run = -1; run < runs; ++run) {
        const Start empty = startOf(folder + u"empty_window"_s, {});
        // Each of the two comes first in turn: it finds what was added last.
        const QStringList programs{folder + u"orvane"_s, bare};
        const bool isSwapped = run % 2 != 0;
        Start client = startOf(programs.at(isSwapped), inHome);
        Start withoutPlugins = startOf(programs.at(!isSwapped), inHome);
        if (isSwapped) std::swap(client, withoutPlugins);
        const double add =
            runOf(folder + u"orvane"_s,
                  inHome + QStringList{u"add"_s, u"Call the venue tomorrow 5pm !high #errand"_s});
        if (run < 0) continue; // warm-up
        emptyTimes.push_back(empty.milliseconds);
        emptySizes.push_back(empty.megabytes);
        clientTimes.push_back(client.milliseconds);
        clientSizes.push_back(client.megabytes);
        bareTimes.push_back(withoutPlugins.milliseconds);
        bareSizes.push_back(withoutPlugins.megabytes);
        ratios.push_back(client.milliseconds / empty.milliseconds);
        adds.push_back(add);
    }
    std::printf("medians of %d runs, in pairs\n", runs);
    std::printf("empty window     %7.1f ms  %6.1f MB\n", median(emptyTimes), median(emptySizes));
    std::printf("first list       %7.1f ms  %6.1f MB\n", median(clientTimes), median(clientSizes));
    std::printf("without plugins  %7.1f ms  %6.1f MB\n", median(bareTimes), median(bareSizes));
    std::printf("ratio            %7.2f     +%5.1f MB\n", median(ratios),
                median(clientSizes) - median(emptySizes));
    std::printf("orvane add       %7.1f ms\n", median(adds));
    return 0;
}
