#include "platform/DesktopFileManager.h"

#include "corvexkit/log/CXLog.h"

#include <QDBusMessage>
#include <QFileInfo>
#include <QProcess>
#include <QUrl>

using namespace Qt::StringLiterals;

namespace {

constexpr CXLogger fileManagerLog{u"desktop"};
constexpr int patience = 5000; // milliseconds

} // namespace

bool DesktopFileManager::showItem(const QString &file)
{
    QDBusMessage show =
        QDBusMessage::createMethodCall(u"org.freedesktop.FileManager1"_s, u"/org/freedesktop/FileManager1"_s,
                                       u"org.freedesktop.FileManager1"_s, u"ShowItems"_s);
    const QString uri = QString::fromLatin1(QUrl::fromLocalFile(file).toEncoded());
    show << QStringList{uri} << QString{};
    const QDBusMessage reply = m_bus.call(show, QDBus::BlockWithGui, patience);
    if (reply.type() == QDBusMessage::ReplyMessage) return true;
    fileManagerLog.info(u"No file manager shows single files: "_s + reply.errorMessage());
    if (QProcess::startDetached(u"xdg-open"_s, {QFileInfo{file}.path()})) return true;
    fileManagerLog.warning(u"The folder of “%1” could not be opened."_s.arg(file));
    return false;
}
