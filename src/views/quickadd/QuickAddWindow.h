#pragma once

#include "views/controls/PopupFrame.h"

class KWNewTaskTextField;
class QLabel;

/// A small frameless window with one field, and a quiet line below that says what becomes of the text. Escape
/// closes it, and another window does when nothing is typed. Main thread.
class QuickAddWindow : public PopupFrame {
    Q_OBJECT

public:
    QuickAddWindow();

    KWNewTaskTextField &field() const { return *m_field; }

    /// Shows it in the upper third of the screen that has the pointer, or brings it to the front; the
    /// keyboard is in the field.
    void popUp();

    /// The line; a problem goes with the next one.
    void setSummary(const QString &summary);
    /// Says what could not be done in place of the line. Screen readers say it.
    void showProblem(const QString &sentence);

    /// Whether the key that was pressed last asks to go on with the next task: with Ctrl or Shift.
    bool isHeldOpen() const { return m_isHeldOpen; }

Q_SIGNALS:
    /// It is on its way out, or another window has the keyboard.
    void left();

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;
    void changeEvent(QEvent *event) override;
    void hideEvent(QHideEvent *event) override;

private:
    void fit();

    KWNewTaskTextField *m_field;
    QLabel *m_summary;
    QLabel *m_problem;
    bool m_isHeldOpen = false;
};
