#pragma once

#include "views/controls/PaintedButton.h"

/// Something that is on or off at once, as a pill with a knob. A press changes it.
class Switch : public PaintedButton {
    Q_OBJECT

public:
    explicit Switch(QWidget *parent = nullptr);

    QSize sizeHint() const override;

protected:
    Ring ring() const override;
    void paintContent(QPainter &painter) override;
};
