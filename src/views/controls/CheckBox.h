#pragma once

#include "model/records/KWConstants.h"
#include "views/controls/PaintedButton.h"

/// A checkbox that carries the colour of a priority. A press asks by clicked(); what it shows
/// changes only by setStatus(), when the record has changed.
class CheckBox : public PaintedButton {
    Q_OBJECT

public:
    explicit CheckBox(QWidget *parent = nullptr);

    void setStatus(KWTaskStatus status);
    void setPriority(KWTaskPriority priority);

    QSize sizeHint() const override;

protected:
    Ring ring() const override;
    void paintContent(QPainter &painter) override;
    void nextCheckState() override {}

private:
    KWTaskStatus m_status = KWTaskStatusOpen;
    KWTaskPriority m_priority = KWTaskPriorityNone;
};
