#include "cli/Commands.h"
#include "client/DesktopClient.h"

#include <QApplication>
#include <QTextStream>

namespace {

int runHeadless(const Invocation &invocation, int &argc, char **argv)
{
    const QCoreApplication application{argc, argv};
    QTextStream in{stdin};
    QTextStream out{stdout};
    QTextStream err{stderr};
    switch (invocation.action) {
    case Invocation::Action::Version:
        out << "orvane " ORVANE_VERSION "\n";
        return 0;
    case Invocation::Action::Help:
        out << usageOf(invocation.command);
        return 0;
    default:
        return int(runCommand(invocation, {in, out, err}));
    }
}

} // namespace

int main(int argc, char **argv)
{
    QCoreApplication::setApplicationName(QStringLiteral("Orvane"));
    QCoreApplication::setApplicationVersion(QStringLiteral(ORVANE_VERSION));

    QStringList words;
    for (int i = 1; i < argc; ++i)
        words.append(QString::fromLocal8Bit(argv[i]));
    const Result<Invocation> invocation = Invocation::parse(words);
    if (!invocation) {
        QTextStream{stderr} << invocation.error().sentence << " See `orvane --help`.\n";
        return int(ExitStatus::WrongUsage);
    }
    if (invocation->action == Invocation::Action::Window || invocation->action == Invocation::Action::Picture)
        return DesktopClient{*invocation}.run(argc, argv);
    return runHeadless(*invocation, argc, argv);
}
