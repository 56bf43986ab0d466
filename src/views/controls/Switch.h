#pragma once

#include <QAbstractButton>

/// Something that is on or off at once, as a pill with a knob. Space and a click change it.
class Switch : public QAbstractButton {
    Q_OBJECT

public:
    explicit Switch(QWidget *parent = nullptr);

    QSize sizeHint() const override;

protected:
    void paintEvent(QPaintEvent *event) override;
};
