#pragma once

#include "views/controls/PaintedButton.h"

/// A round-ended button with a text: filled in the accent, in a quiet colour, or with an outline alone.
class PillButton : public PaintedButton {
    Q_OBJECT

public:
    enum class Look { Filled, Quiet, Outlined };
    enum class Size { Usual, Large };
    PillButton(const QString &text, Look look, Size size = Size::Usual, QWidget *parent = nullptr);

    void setLook(Look look);
    /// Also what screen readers say; see setAccessibleName() for another.
    void setLabel(const QString &text);

    QSize sizeHint() const override;

protected:
    Ring ring() const override;
    void paintContent(QPainter &painter) override;

private:
    Look m_look;
    const Size m_size;
};
