#pragma once

#include "model/records/KWConstants.h"

#include <QAbstractButton>

/// A checkbox that carries the colour of a priority. Space or a click asks by clicked(); what it shows
/// changes only by setStatus(), when the record has changed.
class CheckBox : public QAbstractButton {
    Q_OBJECT

public:
    explicit CheckBox(QWidget *parent = nullptr);

    void setStatus(KWTaskStatus status);
    void setPriority(KWTaskPriority priority);

    QSize sizeHint() const override;

protected:
    void paintEvent(QPaintEvent *event) override;
    void nextCheckState() override {}

private:
    KWTaskStatus m_status = KWTaskStatusOpen;
    KWTaskPriority m_priority = KWTaskPriorityNone;
};
