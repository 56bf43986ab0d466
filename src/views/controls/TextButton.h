#pragma once

#include "views/controls/PaintedButton.h"

/// A button that is its text alone, for places with several of them. One that opens a menu has a mark.
class TextButton : public PaintedButton {
    Q_OBJECT

public:
    enum class Opens { Nothing, Menu };

    explicit TextButton(const QString &text, Opens opens = Opens::Nothing, QWidget *parent = nullptr);

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override { return sizeHint(); }

protected:
    void paintContent(QPainter &painter) override;

private:
    int markWidth() const;

    const Opens m_opens;
};
