#include "views/addfield/TakenBackMarks.h"

#include "capture/RecognitionLink.h"

#include <utility>

bool TakenBackMarks::takeBack(const QString &link, const QString &text, const QString &words)
{
    if (!setRecognition(link, Recognition::Blocked, m_options)) return false;
    m_last = {link, text, words};
    return true;
}

void TakenBackMarks::allowLast()
{
    setRecognition(std::exchange(m_last, std::nullopt)->link, Recognition::Allowed, m_options);
}

bool TakenBackMarks::restoreLast(const QString &text)
{
    if (!m_last || m_last->text != text) return false;
    allowLast();
    return true;
}

void TakenBackMarks::follow(const QString &text)
{
    if (text.isEmpty()) {
        m_options = {};
        m_last.reset();
    }
    // Backspace was a correction after all where the words it was pressed behind are changed next.
    if (m_last && !m_last->words.isEmpty() && !text.contains(m_last->words)) allowLast();
}
