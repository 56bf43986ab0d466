#pragma once

#include <QWidget>

class QLabel;
class QPushButton;
class QStackedWidget;

/// What a person sees before there is an account: what this is, and one button that makes an account
/// on this computer, without a network and without a password.
class WelcomeWindow : public QWidget {
    Q_OBJECT

public:
    explicit WelcomeWindow(QWidget *parent = nullptr);

    /// Adds a page behind the others.
    void addPage(QWidget *page);
    void showLastPage();

    /// Tells why an account could not be made; empty takes the message away.
    void showProblem(const QString &problem);

Q_SIGNALS:
    /// "Use on this computer".
    void localAccountRequested();

private:
    QWidget *makeStartPage();
    void dress();

    QStackedWidget *m_pages;
    QLabel *m_icon;
    QLabel *m_name;
    QLabel *m_sentence;
    QLabel *m_problem;
    QPushButton *m_useHere;
};
