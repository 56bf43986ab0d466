#pragma once

#include "focus/KWStopwatchConfirmManager.h"

#include <QDialog>
#include <QPointer>

class KWStopwatchConfirmViewController;

/// The window in which the length of a timing is confirmed. Enter confirms. Escape does nothing, so that no
/// timing is put aside by accident; closing the window asks again at the next start.
class KWStopwatchConfirmWindow : public QDialog {
    Q_OBJECT

public:
    explicit KWStopwatchConfirmWindow(const StopwatchConfirmation &confirmation);

    /// Over the middle of `window`, or of the screen without one; key and in front.
    void present(const QWidget *window);

    void reject() override {}

protected:
    void closeEvent(QCloseEvent *event) override;

private:
    KWStopwatchConfirmViewController *m_controller;
    std::function<void()> m_postponed;
};

/// Shows the window, one at a time.
class StopwatchConfirmPresenter : public StopwatchConfirmPort {
public:
    ~StopwatchConfirmPresenter() override;

    void show(const StopwatchConfirmation &confirmation) override;
    void close() override;
    /// None while there is nothing to confirm.
    KWStopwatchConfirmWindow *window() const { return m_window; }

private:
    QPointer<KWStopwatchConfirmWindow> m_window;
};
