#pragma once

#include <QDialog>

class QLabel;
class QLineEdit;
class QPushButton;

/// A window in which a calendar is subscribed to: by an address that is typed or pasted, or by a file that is
/// chosen. Enter subscribes, Escape leaves everything as it was. What is typed stays until it has worked.
class SubscribeDialog : public QDialog {
    Q_OBJECT

public:
    explicit SubscribeDialog(QWidget *parent);

    QString address() const;
    /// Empty for the one that the calendar gives itself.
    QString name() const;

    /// While the calendar is read nothing else can be begun.
    void setIsReading(bool isReading);
    /// Why it could not be subscribed to.
    void showProblem(const QString &sentence);

Q_SIGNALS:
    /// Close the window when it has worked.
    void subscribeRequested();

private:
    void chooseFile();

    QLineEdit *m_address;
    QLineEdit *m_name;
    QLabel *m_message;
    QPushButton *m_choose;
    QPushButton *m_subscribe;
};
