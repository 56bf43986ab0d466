#pragma once

#include "views/controls/PopupFrame.h"

/// What can be typed into an add field, in a frame below it that the next key or click closes.
class FieldHelp : public PopupFrame {
    Q_OBJECT

public:
    /// Shows it below `field`; it is gone when it is closed.
    static void showBelow(QWidget &field);

protected:
    void keyPressEvent(QKeyEvent *event) override;

private:
    explicit FieldHelp(QWidget &field);
};
