#pragma once

#include "views/controls/IconButton.h"

/// Opens what the calendar shows; a dot on it says that something is left out.
class ShownButton : public IconButton {
    Q_OBJECT

public:
    explicit ShownButton(QWidget *parent = nullptr);

    void setHidesSomething(bool hides);

protected:
    void paintContent(QPainter &painter) override;

private:
    bool m_hidesSomething = false;
};
