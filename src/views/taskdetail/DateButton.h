#pragma once

#include "views/controls/PaintedButton.h"
#include "views/tasklist/TaskDateText.h"

/// The date of a task in words, with a mark when it repeats. Pressing it asks for another one.
class DateButton : public PaintedButton {
    Q_OBJECT

public:
    explicit DateButton(QWidget *parent = nullptr);

    /// `repeat`: in words how it repeats; empty when it does not.
    void setDate(const TaskDateText &date, const QString &repeat);

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

protected:
    void paintContent(QPainter &painter) override;

private:
    int repeatWidth() const;

    TaskDateText m_date;
    bool m_repeats = false;
};
