#pragma once

#include "views/controls/PaintedButton.h"

/// The list a task is in: its colour and its name. Pressing it asks for another one.
class ListButton : public PaintedButton {
    Q_OBJECT

public:
    explicit ListButton(QWidget *parent = nullptr);

    void setList(const QString &name, const QString &color);

    QSize sizeHint() const override;

protected:
    void paintContent(QPainter &painter) override;

private:
    QString m_color;
};
