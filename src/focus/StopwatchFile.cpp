#include "focus/StopwatchFile.h"

#include "model/settings/KWLocalizedString.h"

#include <QFile>
#include <QSaveFile>

Result<QString> StopwatchFile::load()
{
    QFile file{m_path};
    if (!file.exists()) return QString{};
    if (!file.open(QIODevice::ReadOnly))
        return Error{KWLocalizedString("“%1” cannot be read: %2.").arg(m_path, file.errorString())};
    return QString::fromUtf8(file.readAll());
}

Result<void> StopwatchFile::save(const QString &text)
{
    QSaveFile file{m_path};
    const bool isWritten = file.open(QIODevice::WriteOnly) && file.write(text.toUtf8()) >= 0;
    if (!isWritten || !file.commit())
        return Error{KWLocalizedString("“%1” cannot be written: %2.").arg(m_path, file.errorString())};
    return {};
}

Result<void> StopwatchFile::putAside()
{
    const QString aside = m_path + QStringLiteral(".unreadable");
    QString free = aside;
    for (int number = 2; QFile::exists(free); ++number)
        free = QStringLiteral("%1-%2").arg(aside).arg(number);
    QFile file{m_path};
    if (!file.rename(free))
        return Error{KWLocalizedString("“%1” cannot be renamed: %2.").arg(m_path, file.errorString())};
    return {};
}

Result<void> StopwatchFile::clear()
{
    QFile file{m_path};
    if (file.exists() && !file.remove())
        return Error{KWLocalizedString("“%1” cannot be removed: %2.").arg(m_path, file.errorString())};
    return {};
}
