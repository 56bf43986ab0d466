#pragma once

#include "views/controls/PopupFrame.h"

class QLabel;
class QLineEdit;

/// A small frame over the window that asks for a name. Enter takes it, Escape goes back; what is wrong with
/// it is said below, and what was typed stays.
class HabitNamePopup : public PopupFrame {
    Q_OBJECT

public:
    /// `question` is the accessible name of the field and stands in it while it is empty.
    HabitNamePopup(const QString &question, const QString &name, QWidget *parent);

    void popUp(const QPoint &position);
    void showProblem(const QString &sentence);

Q_SIGNALS:
    /// Close it when the name is taken.
    void nameTyped(const QString &name);

private:
    QLineEdit *m_field;
    QLabel *m_problem;
};
