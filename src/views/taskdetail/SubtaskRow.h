#pragma once

#include "model/records/KWTaskModel.h"

#include <QWidget>

class CheckBox;
class RowButton;

/// A task in the detail of its parent: a checkbox, and its title as a button that opens it.
class SubtaskRow : public QWidget {
    Q_OBJECT

public:
    explicit SubtaskRow(QString taskID, QWidget *parent = nullptr);

    const QString &taskID() const { return m_taskID; }
    void setTask(const KWTaskModel &task);
    void dress();

Q_SIGNALS:
    void toggled();
    void opened();

private:
    QString m_taskID;
    CheckBox *m_checkBox;
    RowButton *m_title;
};
