#pragma once

#include <QString>

class QWidget;

/// Presses a key in the next alert once it is up: in the alert itself, or in the button of that name.
void answerNextAlert(Qt::Key key, const QString &button = {});

/// Fails the test for every visible control inside that the keyboard does not reach or that has no
/// accessible name.
void verifyControlsHaveNames(const QWidget &window);
