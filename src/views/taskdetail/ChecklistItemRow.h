#pragma once

#include "corvexkit/time/CXClock.h"
#include "model/records/KWChecklistItemModel.h"

#include <QWidget>

class CheckBox;
class CommittingTextEdit;
class ItemDateButton;

/// One line of a checklist: checkbox, title and date. A row without an id is a draft: an item that the
/// person has begun to type and that no record knows yet.
class ChecklistItemRow : public QWidget {
    Q_OBJECT

public:
    ChecklistItemRow(CXClock &clock, QWidget *parent = nullptr);

    /// Empty for a draft.
    const QString &sid() const { return m_sid; }
    bool isDraft() const { return m_sid.isEmpty(); }
    /// Shows the item; typed text that is not handed over yet stays. A draft becomes the item.
    void setItem(const KWChecklistItemModel &item);

    /// The record of the item is gone.
    void becomeDraft();

    CommittingTextEdit &editor() { return *m_editor; }
    void setReadOnly(bool isReadOnly);
    bool hasKeyboard() const;
    /// On the screen, below the date: where what asks for another one opens.
    QPoint datePlace() const;
    void dress();

    bool eventFilter(QObject *watched, QEvent *event) override;

Q_SIGNALS:
    void toggled();
    void dateRequested();
    void dateCleared();

protected:
    bool event(QEvent *event) override;

private:
    void openMenu(const QPoint &position);
    void offerDate();

    CXClock &m_clock;
    CheckBox *m_checkBox;
    CommittingTextEdit *m_editor;
    ItemDateButton *m_date;
    QString m_sid;
    bool m_isCompleted = false;
};
