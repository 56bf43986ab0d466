#include "platform/Relaunch.h"

#include <QCoreApplication>
#include <QProcess>

Relaunch::Relaunch(QString program, Arguments arguments)
    : m_program(std::move(program)), m_arguments(std::move(arguments))
{
}

void Relaunch::cx_relunch()
{
    m_wanted = m_arguments();
    QCoreApplication::quit();
}

bool Relaunch::startIfWanted() const
{
    if (!m_wanted || m_isForbidden) return true;
    return QProcess::startDetached(m_program, *m_wanted);
}
