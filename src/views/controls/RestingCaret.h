#pragma once

#include "corvexkit/time/CXClock.h"

#include <QObject>

/// Lets the caret of text fields stand still once the person has left keyboard and mouse alone for a
/// while, so that a window in rest does not wake the machine at every blink. The next key, press of a
/// button or change of the focus makes it blink as the desktop says. One for the application. GUI thread.
class RestingCaret : public QObject {
    Q_OBJECT

public:
    explicit RestingCaret(CXClock &clock, QObject *parent = nullptr);
    ~RestingCaret() override;

    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    void wake();

    CXClock &m_clock;
    ClockCall m_rest;
};
