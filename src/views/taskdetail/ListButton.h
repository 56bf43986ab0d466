#pragma once

#include <QAbstractButton>

/// The list a task is in: its colour and its name. Pressing it asks for another one.
class ListButton : public QAbstractButton {
    Q_OBJECT

public:
    explicit ListButton(QWidget *parent = nullptr);

    void setList(const QString &name, const QString &color);

    QSize sizeHint() const override;

protected:
    void paintEvent(QPaintEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override;

private:
    QString m_color;
};
