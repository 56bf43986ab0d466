#pragma once

#include "corvexkit/time/CXClock.h"
#include "model/records/KWChecklistItemModel.h"

#include <QWidget>

class CheckBox;
class CommittingTextEdit;

/// One line of a checklist: checkbox and title. A row without an id is a draft: an item that the
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
    void dress();

Q_SIGNALS:
    void toggled();

private:
    CheckBox *m_checkBox;
    CommittingTextEdit *m_editor;
    QString m_sid;
    bool m_isCompleted = false;
};
