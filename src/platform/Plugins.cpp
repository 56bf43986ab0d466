#include "platform/Plugins.h"

#include "corvexkit/log/CXLog.h"

#include <QCoreApplication>
#include <QFile>
#include <QPluginLoader>

using namespace Qt::StringLiterals;

namespace {

constexpr CXLogger pluginsLog{u"plugins"};

} // namespace

QString Plugins::fileOf(const QString &name)
{
    const QString program = QCoreApplication::applicationDirPath();
    for (const QString &folder : {program + u"/plugins/"_s, program + u"/../lib/orvane/plugins/"_s})
        if (const QString file = folder + name + u".so"_s; QFile::exists(file)) return file;
    return {};
}

QObject *Plugins::load(const QString &name)
{
    const QString file = fileOf(name);
    if (file.isEmpty()) return nullptr;
    QPluginLoader loader{file}; // the library stays when this goes
    if (QObject *plugin = loader.instance()) return plugin;
    pluginsLog.warning(u"%1 cannot be loaded: %2"_s.arg(file, loader.errorString()));
    return nullptr;
}
