#pragma once

#include "habits/HabitDetailContent.h"

#include <QWidget>

#include <functional>

class HabitNoteEdit;
class QLabel;

/// The note of a day in a list of them. Enter, F2 and a double click edit it, Delete removes it. Being
/// edited, Enter takes what is typed, and so does leaving it; Escape gives it up. Emptied, the note goes.
class HabitNoteRow : public QWidget {
    Q_OBJECT

public:
    /// Stores a note, and tells whether it could: what is typed stays in the field as long as it cannot.
    using Store = std::function<bool(const QString &habitID, Day day, const QString &note)>;
    HabitNoteRow(QString habitID, Day day, Store store, QWidget *parent = nullptr);

    const QString &habitID() const { return m_habitID; }
    Day day() const { return m_day; }
    /// What is typed stays.
    void setNote(const QString &text, Day today);
    void setEditable(bool isEditable);
    bool isEditing() const;
    /// Stores what is typed, if anything.
    void take();

protected:
    void keyPressEvent(QKeyEvent *event) override;
    void mouseDoubleClickEvent(QMouseEvent *event) override;
    void focusInEvent(QFocusEvent *event) override;
    void focusOutEvent(QFocusEvent *event) override;
    void paintEvent(QPaintEvent *event) override;

private:
    void edit();
    void endEditing();
    void fitEditor();

    const QString m_habitID;
    const Day m_day;
    const Store m_store;
    bool m_isEditable = true;
    QString m_stored;
    QLabel *m_dayName;
    QLabel *m_text;
    HabitNoteEdit *m_edit;
};
