#include "cli/CommandText.h"
#include "cli/Commands.h"
#include "cli/SummaryCommand.h"
#include "client/DesktopClient.h"

#include <QApplication>
#include <QTextStream>

#include <algorithm>
#include <iostream>
#include <memory>

namespace {

ExitStatus answer(const Invocation &invocation, CommandStreams streams)
{
    switch (invocation.action) {
    case Invocation::Action::Version:
        streams.out << "orvane " ORVANE_VERSION "\n";
        return ExitStatus::Done;
    case Invocation::Action::Help:
        streams.out << usageOf(invocation.command);
        return ExitStatus::Done;
    default:
        return runCommand(invocation, streams);
    }
}

int runHeadless(const Invocation &invocation, int &argc, char **argv)
{
    if (needsGuiApplication(invocation)) qputenv("QT_QPA_PLATFORM", "offscreen");
    const std::unique_ptr<QCoreApplication> application{
        needsGuiApplication(invocation) ? new QGuiApplication{argc, argv} : new QCoreApplication{argc, argv}};
    QTextStream out{stdout};
    QTextStream err{stderr};
    const ExitStatus status = answer(invocation, {std::cin, out, err});
    out.flush();
    if (out.status() == QTextStream::Ok || status != ExitStatus::Done) return int(status);
    return int(failWith(commandText("It is done, but the answer could not be written to "
                                    "standard output."),
                        ExitStatus::CouldNot, err));
}

} // namespace

int main(int argc, char **argv)
{
    QCoreApplication::setApplicationName(QStringLiteral("Orvane"));
    QCoreApplication::setApplicationVersion(QStringLiteral(ORVANE_VERSION));

    const Result<Invocation> invocation =
        Invocation::parse(std::span{argv, std::size_t(argc)}.subspan(std::size_t(std::min(argc, 1))));
    if (!invocation) {
        QTextStream err{stderr};
        return int(failWith(invocation.error().sentence + QStringLiteral(" See `orvane --help`."),
                            ExitStatus::WrongUsage, err));
    }
    if (invocation->action == Invocation::Action::Window || invocation->action == Invocation::Action::Picture)
        return DesktopClient{*invocation}.run(argc, argv);
    return runHeadless(*invocation, argc, argv);
}
