#include "platform/LoginItem.h"

#include "model/settings/KWLocalizedString.h"
#include "platform/DBusSingleInstance.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QRegularExpression>
#include <QSaveFile>
#include <QStandardPaths>

using namespace Qt::StringLiterals;

namespace {

QString autostartEntry(const DataFolders &folders)
{
    return QStandardPaths::writableLocation(QStandardPaths::GenericConfigLocation) + u"/autostart/"_s +
           DBusSingleInstance::busName(folders) + u".desktop"_s;
}

QStringList commandOn(const DataFolders &folders)
{
    const QStringList program{QCoreApplication::applicationFilePath()};
    if (folders.data == DataFolders::standard().data) return program;
    return program + QStringList{u"--home"_s, folders.data};
}

// In quotes, with a backslash before what a shell would read there; written as a string, in which each
// backslash is doubled once more; "%" begins a field code.
QString quoted(QString argument)
{
    static const QRegularExpression special{uR"((["`$\\]))"_s};
    argument.replace(special, uR"(\\1)"_s);
    return u'"' + argument.replace(u'\\', uR"(\\)"_s).replace(u'%', u"%%"_s) + u'"';
}

Error cannotWriteEntry(const QString &file)
{
    return {KWLocalizedString("The entry “%1” cannot be written.").arg(QDir::toNativeSeparators(file))};
}

} // namespace

LoginItem::LoginItem(const DataFolders &folders) : LoginItem(autostartEntry(folders), commandOn(folders)) {}

QString LoginItem::execLine(const QStringList &command)
{
    QStringList words;
    for (const QString &each : command)
        words.append(quoted(each));
    return words.join(u' ');
}

LoginStart LoginItem::start() const
{
    QFile file{m_entry};
    if (!file.open(QIODevice::ReadOnly)) return LoginStart::Off;
    const QString entry = QString::fromUtf8(file.readAll());
    static const QRegularExpression isOff{u"^(Hidden *= *true|X-GNOME-Autostart-enabled *= *false) *$"_s,
                                          QRegularExpression::MultilineOption};
    static const QRegularExpression inBackground{u"^Exec *=.*--login-item"_s,
                                                 QRegularExpression::MultilineOption};
    if (isOff.match(entry).hasMatch()) return LoginStart::Off;
    return inBackground.match(entry).hasMatch() ? LoginStart::InBackground : LoginStart::WithWindow;
}

Result<void> LoginItem::setStart(LoginStart start)
{
    if (start == LoginStart::Off) {
        if (QFile::exists(m_entry) && !QFile::remove(m_entry)) return cannotWriteEntry(m_entry);
        return {};
    }
    QStringList command = m_command;
    if (start == LoginStart::InBackground) command.append(u"--login-item"_s);
    const QStringList lines{u"[Desktop Entry]"_s,
                            u"Type=Application"_s,
                            u"Name=Orvane"_s,
                            u"Exec="_s + execLine(command),
                            u"Icon=orvane"_s,
                            u"Terminal=false"_s,
                            u"StartupNotify=false"_s,
                            u"X-GNOME-Autostart-enabled=true"_s,
                            {}};
    QDir{}.mkpath(QFileInfo{m_entry}.path());
    QSaveFile file{m_entry};
    const bool isWritten = file.open(QIODevice::WriteOnly) && file.write(lines.join(u'\n').toUtf8()) >= 0;
    if (!isWritten || !file.commit()) return cannotWriteEntry(m_entry);
    return {};
}
