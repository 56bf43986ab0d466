#pragma once

#include "views/controls/PaintedButton.h"

/// A quiet button: a plus and what it adds.
class AddButton : public PaintedButton {
    Q_OBJECT

public:
    explicit AddButton(const QString &text, QWidget *parent = nullptr);

    QSize sizeHint() const override;

protected:
    Ring ring() const override;
    void paintContent(QPainter &painter) override;
};
