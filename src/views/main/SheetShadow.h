#pragma once

#include <QWidget>

/// The shadow that a sheet throws on what is beside it, at its inner edge. Takes no mouse.
class SheetShadow : public QWidget {
public:
    explicit SheetShadow(QWidget &window);

    /// Beside a sheet with that place in the window: at its left, in a mirrored window at its right.
    void standBeside(const QRect &sheet);

protected:
    void paintEvent(QPaintEvent *event) override;
};
