#pragma once

#include <QDialog>

class QVBoxLayout;

/// An alert with more choices than stand side by side: one below the other. The first answers to Enter, the
/// last to Escape and to closing the window.
class ChoiceDialog : public QDialog {
public:
    ChoiceDialog(const QString &title, const QString &text, QWidget *parent = nullptr);

    /// `number` is what choose() answers, and part of the button's object name: "choice2".
    void addChoice(int number, const QString &text);
    /// Shows the dialog and waits.
    int choose();

private:
    QVBoxLayout *m_layout;
    int m_last = 0;
    int m_chosen = 0;
};
