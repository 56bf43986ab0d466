#pragma once

#include <QTextEdit>

/// Where the note of a day is typed: plain lines, broken by Shift+Enter.
class HabitNoteEdit : public QTextEdit {
    Q_OBJECT

public:
    explicit HabitNoteEdit(QWidget *parent = nullptr);

Q_SIGNALS:
    /// Enter.
    void taken();
    /// Escape.
    void givenUp();
    /// The keyboard is elsewhere, for more than a menu of the field.
    void left();

protected:
    void keyPressEvent(QKeyEvent *event) override;
    void focusOutEvent(QFocusEvent *event) override;
};
