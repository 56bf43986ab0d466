#pragma once

#include <QAbstractButton>

/// A quiet button: a plus and what it adds.
class AddButton : public QAbstractButton {
    Q_OBJECT

public:
    explicit AddButton(const QString &text, QWidget *parent = nullptr);

    QSize sizeHint() const override;

protected:
    void paintEvent(QPaintEvent *event) override;
};
