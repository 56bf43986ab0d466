#include "model/exchange/DiagnosticData.h"

#include "corvexkit/time/CXClock.h"
#include "corvexkit/time/TimeText.h"
#include "model/exchange/SentLog.h"
#include "model/exchange/ZipWriter.h"
#include "model/records/EveryRecord.h"
#include "model/settings/KWLocalizedString.h"
#include "model/store/Connection.h"
#include "model/store/StoreIntegrity.h"

#include <QCoreApplication>
#include <QDir>
#include <QJsonArray>
#include <QJsonDocument>
#include <QLocale>
#include <QSaveFile>
#include <QSettings>
#include <QTemporaryDir>

using namespace Qt::StringLiterals;

namespace {

QJsonObject describeProgram(const CXClock &clock)
{
    return {{u"version"_s, QCoreApplication::applicationVersion()},
            {u"qt"_s, QString::fromLatin1(qVersion())},
            {u"system"_s, QSysInfo::prettyProductName()},
            {u"kernel"_s, QSysInfo::kernelVersion()},
            {u"processor"_s, QSysInfo::currentCpuArchitecture()},
            {u"locale"_s, QLocale{}.name()},
            {u"zone"_s, clock.zone().identifier()},
            {u"time"_s, TimeText::fromInstant(clock.now())}};
}

QJsonObject countsOf(Connection &store)
{
    QJsonObject counts;
    const auto count = [&](const char *table) {
        const std::string rows = std::string{"SELECT count(*) FROM "} + table;
        counts.insert(QString::fromLatin1(table),
                      QJsonObject{{u"all"_s, qint64(store.number(rows))},
                                  {u"deleted"_s, qint64(store.number(rows + " WHERE isDeleted = 1"))}});
    };
#define COUNT(Record) count(Record::Model::tableName);
    EVERY_RECORD(COUNT)
#undef COUNT
    return counts;
}

QJsonObject describeStore(const QString &path)
{
    if (!QFile::exists(path)) return {{u"problem"_s, u"there is none"_s}};
    QJsonObject description;
    try {
        Connection store{path.toStdString(), Connection::Access::ReadWrite};
        store.leaveFileAsItIs();
        description.insert(u"schema"_s, qint64(store.number("PRAGMA user_version")));
        description.insert(u"integrity"_s, damageIn(store).value_or(u"ok"_s));
        description.insert(u"records"_s, countsOf(store));
    } catch (const SQLite::Exception &exception) {
        description.insert(u"problem"_s, QString::fromUtf8(exception.what()));
    }
    return description;
}

// Of the files that are the program's own.
QJsonObject sizesOf(const DataFolders &folders)
{
    QJsonObject sizes;
    for (const QString &folder : {folders.data, folders.backups(), folders.config})
        for (const QFileInfo &file :
             QDir{folder}.entryInfoList({u"store*sqlite*"_s, u"*.ini"_s}, QDir::Files, QDir::Name))
            sizes.insert(file.fileName(), file.size());
    return sizes;
}

QJsonArray preferenceKeys(const QString &folder)
{
    QStringList keys;
    for (const QString &name : {u"standard.ini"_s, u"group.ini"_s})
        keys += QSettings{folder + u'/' + name, QSettings::IniFormat}.allKeys();
    return QJsonArray::fromStringList(keys);
}

bool writeArchive(QIODevice &device, const DataFolders &folders, const CXClock &clock)
{
    ZipWriter archive{device};
    const LocalTime now = clock.localNow();
    archive.add(u"description.json"_s, QJsonDocument{describeData(folders, clock)}.toJson(), now);
    archive.add(u"log/orvane.log"_s, logToSend(folders).toUtf8(), now);
    return archive.finish();
}

} // namespace

QJsonObject describeData(const DataFolders &folders, const CXClock &clock)
{
    return {{u"program"_s, describeProgram(clock)},
            {u"store"_s, describeStore(folders.store())},
            {u"fileSizes"_s, sizesOf(folders)},
            {u"preferences"_s, preferenceKeys(folders.config)}};
}

Result<QString> packDiagnosticData(const DataFolders &folders, const CXClock &clock)
{
    QTemporaryDir folder{QDir::temp().filePath(u"Orvane-XXXXXX"_s)};
    QString time = TimeText::fromLocalTime(clock.localNow(), TimeText::Fraction::Never);
    const QString path = folder.filePath(u"orvane-diagnostics-%1.zip"_s.arg(time.remove(u':')));
    QSaveFile file{path};
    if (!folder.isValid() || !file.open(QIODevice::WriteOnly) || !writeArchive(file, folders, clock) ||
        !file.commit())
        return Error{
            KWLocalizedString("The diagnostic data could not be written into “%1”.").arg(QDir::tempPath())};
    folder.setAutoRemove(false); // the mail and the file manager read it later
    return path;
}
