#pragma once

#include "corvexkit/time/CXClock.h"
#include "model/records/KWTaskModel.h"
#include "views/tasklist/TaskDateText.h"

#include <QWidget>

class CheckBox;

/// The top line of the detail: checkbox, date, repeat mark and priority flag.
class DetailHeader : public QWidget {
    Q_OBJECT

public:
    explicit DetailHeader(CXClock &clock, QWidget *parent = nullptr);

    void setTask(const KWTaskModel &task);
    /// The words for the date may read differently now.
    void refreshDate();

    QSize sizeHint() const override;

Q_SIGNALS:
    void completionToggled();

protected:
    void paintEvent(QPaintEvent *event) override;
    void resizeEvent(QResizeEvent *event) override;

private:
    CXClock &m_clock;
    CheckBox *m_checkBox;
    KWTaskModel m_task;
    TaskDateText m_date;
};
