#pragma once

#include <QAbstractButton>

/// What all buttons have in common that paint themselves. A click, Space, Return and Enter press them once,
/// however long the key is held, unless autoRepeat() is set. The ring of focus shows as soon as the keyboard
/// has a part in it: a click alone brings none.
class PaintedButton : public QAbstractButton {
    Q_OBJECT

public:
    explicit PaintedButton(QWidget *parent = nullptr);

protected:
    struct Ring {
        QRectF bounds;
        double radius;
    };
    /// Where the ring of focus stands: at the edge, if nothing else is said.
    virtual Ring ring() const;
    /// Everything but the ring. What is set on the painter ends here.
    virtual void paintContent(QPainter &painter) = 0;

    /// Behind the content while the mouse is over it or it is held down.
    void paintBackground(QPainter &painter) const;
    /// Where `bounds`, thought from left to right, stand in the direction of the text.
    QRect visual(const QRect &bounds) const;
    /// The side on which text begins.
    Qt::Alignment leading() const;
    bool isFocusShown() const { return m_isByKeyboard && hasFocus(); }

    void paintEvent(QPaintEvent *event) final;
    void keyPressEvent(QKeyEvent *event) override;
    void focusInEvent(QFocusEvent *event) override;

private:
    bool m_isByKeyboard = false;
};
