// One start of a program on a data folder, for tests of several processes: one_start FOLDER [LINK…].
// The first prints "first", then the links it is handed, a line each, until its standard input ends; a
// later one prints "handed over"; an error goes to standard error.

#include "corvexkit/time/SystemClock.h"
#include "platform/DBusSingleInstance.h"

#include <QCoreApplication>
#include <QSocketNotifier>

#include <cstdio>

namespace {

void say(const QString &line)
{
    std::puts(qUtf8Printable(line));
    std::fflush(stdout);
}

} // namespace

int main(int argc, char **argv)
{
    QCoreApplication application{argc, argv};
    const QStringList arguments = application.arguments();
    const DataFolders folders = DataFolders::locate(arguments.value(1));

    SystemClock clock;
    DBusSingleInstance channel{folders, clock};
    SingleInstance instance{folders, channel};
    const auto role = instance.start({.links = arguments.mid(2)},
                                     [](const LaunchRequest &later) { say(later.links.join(u' ')); });
    if (!role) {
        std::fputs(qUtf8Printable(role.error().sentence), stderr);
        return 1;
    }
    if (*role == SingleInstance::Role::HandedOver) {
        say(QStringLiteral("handed over"));
        return 0;
    }
    say(QStringLiteral("first"));
    QSocketNotifier end{fileno(stdin), QSocketNotifier::Read};
    QObject::connect(&end, &QSocketNotifier::activated, &application, &QCoreApplication::quit);
    return application.exec();
}
