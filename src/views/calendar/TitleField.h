#pragma once

#include <QLineEdit>

/// The title of something that is being made, typed where it will stand. Enter takes it, and so does going
/// elsewhere; Escape gives it up. It is gone when it has answered.
class TitleField : public QLineEdit {
    Q_OBJECT

public:
    explicit TitleField(QWidget *parent);

Q_SIGNALS:
    /// Not blank.
    void taken(const QString &title);
    /// In any case, and last.
    void ended();

protected:
    void keyPressEvent(QKeyEvent *event) override;
    void focusOutEvent(QFocusEvent *event) override;

private:
    void end(bool isTaken);

    bool m_hasEnded = false;
};
