#include "platform/Relaunch.h"

#include <QCoreApplication>
#include <QProcess>

Relaunch::Relaunch(QString program, QStringList arguments)
    : m_program(std::move(program)), m_arguments(std::move(arguments))
{
}

void Relaunch::cx_relunch()
{
    m_isWanted = true;
    QCoreApplication::quit();
}

bool Relaunch::startIfWanted() const
{
    if (!m_isWanted || m_isForbidden) return true;
    return QProcess::startDetached(m_program, m_arguments);
}
