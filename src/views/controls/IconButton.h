#pragma once

#include "views/controls/PaintedButton.h"
#include "views/theme/Icons.h"

/// A small quiet button that is its icon alone; what it does is said to screen readers and in its tool tip.
/// One that is checked stays marked.
class IconButton : public PaintedButton {
    Q_OBJECT

public:
    IconButton(Icon icon, const QString &does, QWidget *parent = nullptr);

    /// Draws the icon the other way round, left for right; right-to-left layouts turn it once more.
    void setMirrored(bool isMirrored);

    /// Draws the icon in a colour of its own.
    void setColor(const QColor &color);

    QSize sizeHint() const override;

protected:
    void paintContent(QPainter &painter) override;

private:
    const Icon m_icon;
    bool m_isMirrored = false;
    QColor m_color; // the theme's while it is none
};
