#pragma once

#include "focus/FocusPorts.h"

#include <QPointer>
#include <QWidget>

class AlertPort;

/// What the engines of focus ask, as alerts and as a sheet of the window in front.
class FocusQuestions : public FocusQuestionPort {
public:
    /// `window` answers the window of focus, or none: then the sheet is an alert.
    FocusQuestions(AlertPort &alerts, std::function<QWidget *()> window);
    ~FocusQuestions() override;

    void ask(const FocusQuestion &question, std::function<void(int)> answered) override;
    void askInWindow(const FocusQuestion &question, std::function<void(int)> answered) override;
    void takeBackFromWindow() override;

private:
    AlertPort &m_alerts;
    std::function<QWidget *()> m_window;
    QPointer<QWidget> m_sheet;
};
