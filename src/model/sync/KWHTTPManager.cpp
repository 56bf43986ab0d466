#include "model/sync/KWHTTPManager.h"

#include <QCoreApplication>
#include <QJsonDocument>
#include <QJsonObject>
#include <QLocale>
#include <QSysInfo>

using namespace Qt::StringLiterals;

QString KWHTTPManager::deviceInfo()
{
    const QJsonObject info{{u"program"_s, QCoreApplication::applicationName()},
                           {u"version"_s, QCoreApplication::applicationVersion()},
                           {u"platform"_s, QSysInfo::productType()},
                           {u"system"_s, QSysInfo::prettyProductName()},
                           {u"processor"_s, QSysInfo::currentCpuArchitecture()},
                           {u"language"_s, QLocale{}.name()}};
    return QString::fromUtf8(QJsonDocument{info}.toJson(QJsonDocument::Compact));
}
