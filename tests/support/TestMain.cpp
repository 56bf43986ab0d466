#include "support/TestMain.h"

#include <QApplication>
#include <QDir>
#include <QTemporaryDir>

#include <cstdio>
#include <map>
#include <string>

namespace {

std::map<std::string, TestRegistration::Factory> &registeredTests()
{
    static std::map<std::string, TestRegistration::Factory> tests;
    return tests;
}

// Before Qt reads the environment for the first time.
void isolateEnvironment(const QString &home)
{
    const auto folder = [&home](const char *name) {
        const QString path = home + QLatin1Char('/') + QLatin1String(name);
        QDir{}.mkpath(path);
        return QFile::encodeName(path);
    };
    qputenv("HOME", QFile::encodeName(home));
    qputenv("XDG_DATA_HOME", folder("data"));
    qputenv("XDG_CONFIG_HOME", folder("config"));
    qputenv("XDG_CACHE_HOME", folder("cache"));
    qputenv("XDG_STATE_HOME", folder("state"));
    const QByteArray runtime = folder("runtime");
    QFile::setPermissions(QFile::decodeName(runtime), QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
    qputenv("XDG_RUNTIME_DIR", runtime);
    qputenv("QT_QPA_PLATFORM", "offscreen");
    qputenv("TZ", "UTC");
    qputenv("LC_ALL", "C.UTF-8");
    qunsetenv("ORVANE_HOME");
    // A debugger that dumps the stacks of a crashed test can hang.
    qputenv("QTEST_DISABLE_STACK_DUMP", "1");
}

} // namespace

TestRegistration::TestRegistration(const char *name, Factory factory)
{
    registeredTests().emplace(name, std::move(factory));
}

int main(int argc, char **argv)
{
    const QTemporaryDir home;
    isolateEnvironment(home.path());
    QCoreApplication::setAttribute(Qt::AA_ShareOpenGLContexts); // as the client does, for web pages
    QApplication application{argc, argv};

    QStringList options = application.arguments();
    QStringList names;
    for (int i = int(options.size()) - 1; i > 0; --i)
        if (registeredTests().contains(options.at(i).toStdString())) names.prepend(options.takeAt(i));

    int failures = 0;
    for (const auto &[name, factory] : registeredTests()) {
        if (!names.isEmpty() && !names.contains(QString::fromStdString(name))) continue;
        failures += QTest::qExec(factory().get(), options);
    }
    return failures == 0 ? 0 : 1;
}
