#pragma once

#include <QWidget>

class QLineEdit;
class IconButton;

/// Shows the keys of one command and asks for others: the next stroke in it is chosen(), Backspace or Delete
/// alone choose none, the button beside it the default ones. It shows only what setKeys() gave it, so that
/// refused keys never stand there. Tab goes on to the next field, Escape is left to the window.
class ShortcutField : public QWidget {
    Q_OBJECT

public:
    /// `defaultKeys` is portable text ("Ctrl+D").
    ShortcutField(const QString &command, QString defaultKeys);

    /// Portable text; empty for none.
    void setKeys(const QString &keys);

Q_SIGNALS:
    /// Portable text of one stroke; empty for none.
    void chosen(const QString &keys);

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    QString m_defaultKeys;
    QLineEdit *m_keys;
    IconButton *m_default;
};
