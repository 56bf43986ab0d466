#pragma once

#include "model/records/KWTaskModel.h"

#include <QWidget>

class QLineEdit;
class QVBoxLayout;
class SubtaskRow;

/// The tasks right below a task, each with its checkbox, and a field for the next one. Rows of the same
/// tasks stay through every update.
class SubtaskList : public QWidget {
    Q_OBJECT

public:
    explicit SubtaskList(QWidget *parent = nullptr);

    void setSubtasks(const QList<KWTaskModel> &subtasks);
    /// Whether the field is there.
    void setTakesMore(bool takesMore);
    /// Hands over what is typed in the field.
    void commit();
    /// What was handed over is saved.
    void clearField();
    QString typedText() const;
    void retype(const QString &text);
    void dress();

Q_SIGNALS:
    void added(const QString &title);
    void toggled(const QString &taskID);
    void opened(const QString &taskID);

private:
    SubtaskRow *rowFor(const KWTaskModel &task);

    QVBoxLayout *m_layout;
    QLineEdit *m_field;
    QList<SubtaskRow *> m_rows;
};
