#pragma once

#include <QWidget>

class QLabel;
class QAbstractButton;

/// A short message at the bottom of a window, centred, with one action at most. It stays on top of
/// its parent and follows its size; whoever shows it decides when it goes. Screen readers announce it.
class Toast : public QWidget {
    Q_OBJECT

public:
    explicit Toast(QWidget &parent);

    /// Shows the message in place of the one before. Without `action` there is no button.
    void showMessage(const QString &message, const QString &action = {});
    void dismiss();

    /// Stands in the tab order where whoever shows the toast puts it.
    QWidget &actionButton();

Q_SIGNALS:
    /// The button was pressed; the toast has gone.
    void actionTriggered();

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;
    void paintEvent(QPaintEvent *event) override;

private:
    void dress();
    void place();

    QLabel *m_message;
    QAbstractButton *m_action;
};
