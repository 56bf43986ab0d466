#include "views/focus/FocusQuestions.h"

#include "app/ports/AlertPort.h"
#include "views/alerts/Alert.h"

namespace {

AlertText textOf(const FocusQuestion &question)
{
    return {.message = question.message,
            .text = question.text,
            .buttons = question.buttons,
            .escapeButton = question.escapeButton};
}

} // namespace

FocusQuestions::FocusQuestions(AlertPort &alerts, std::function<QWidget *()> window)
    : m_alerts(alerts), m_window(std::move(window))
{
}

FocusQuestions::~FocusQuestions() { delete m_sheet; }

void FocusQuestions::ask(const FocusQuestion &question, std::function<void(int)> answered)
{
    if (QWidget *window = m_window(); window && window->isVisible()) {
        window->raise();
        window->activateWindow();
    }
    m_alerts.show(textOf(question), std::move(answered));
}

void FocusQuestions::askInWindow(const FocusQuestion &question, std::function<void(int)> answered)
{
    takeBackFromWindow();
    m_sheet = Alert::open(textOf(question), m_window(), std::move(answered));
}

// From the event loop: it may be the sheet itself whose answer leads here.
void FocusQuestions::takeBackFromWindow()
{
    if (!m_sheet) return;
    m_sheet->disconnect(m_sheet);
    m_sheet->hide();
    m_sheet->deleteLater();
    m_sheet.clear();
}
