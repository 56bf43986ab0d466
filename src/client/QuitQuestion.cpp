#include "client/QuitQuestion.h"

#include "model/settings/KWLocalizedString.h"
#include "views/alerts/UnsavedTextAlert.h"

#include <QCoreApplication>
#include <QEvent>

QuitQuestion::QuitQuestion(Answers answers) : m_answers(std::move(answers))
{
    qApp->installEventFilter(this);
}

// It hears of every event of the program.
bool QuitQuestion::eventFilter(QObject *watched, QEvent *event)
{
    if (event->type() != QEvent::Quit || watched != qApp || m_answers.isSettled() || mayQuit()) return false;
    event->ignore();
    return true;
}

bool QuitQuestion::mayQuit()
{
    if (m_isAsking) return false;
    m_isAsking = true;
    const bool may = mayLoseUnsavedTexts(KWLocalizedString("Quit Without Saving"));
    m_isAsking = false;
    if (!may && !m_answers.isSettled()) m_answers.refused();
    return may;
}
