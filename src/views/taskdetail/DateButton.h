#pragma once

#include "views/tasklist/TaskDateText.h"

#include <QAbstractButton>

/// The date of a task in words, with a mark when it repeats. Pressing it asks for another one.
class DateButton : public QAbstractButton {
    Q_OBJECT

public:
    explicit DateButton(QWidget *parent = nullptr);

    void setDate(const TaskDateText &date, bool repeats);

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

protected:
    void paintEvent(QPaintEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override;

private:
    int repeatWidth() const;

    TaskDateText m_date;
    bool m_repeats = false;
};
