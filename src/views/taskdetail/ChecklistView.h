#pragma once

#include "corvexkit/time/CXClock.h"
#include "model/records/KWChecklistItemModel.h"

#include <QList>
#include <QWidget>

class ChecklistItemRow;
class QAbstractButton;
class QVBoxLayout;

/// The checklist of a task. Enter in an item begins the next one, with what stood behind the caret;
/// Backspace in an empty one removes it; Enter in an empty new one ends the list. Rows keep their caret
/// and their typed text through every update.
class ChecklistView : public QWidget {
    Q_OBJECT

public:
    explicit ChecklistView(CXClock &clock, QWidget *parent = nullptr);

    /// The items of the same task as they are now.
    void setItems(const QList<KWChecklistItemModel> &items);
    /// The items of another task. Call commit() before.
    void startWith(const QList<KWChecklistItemModel> &items);
    /// Nothing can be typed or added while it is.
    void setReadOnly(bool isReadOnly);
    /// Hands over what is typed and not handed over yet.
    void commit();
    /// The item that was handed over with this title could not be stored; an empty id is a new one behind
    /// `afterSid`. It stays in its row and is handed over again.
    void keepUnsaved(const QString &sid, const QString &afterSid, const QString &title);
    struct UnsavedItem {
        QString sid; ///< empty for a new one
        int place = 0;
        QString afterSid; ///< of the item before it, empty for the first place
        QString title;
    };
    /// What stands in the rows and is not handed over, or could not be stored.
    QList<UnsavedItem> unsavedItems() const;
    /// As if it had been typed.
    void retype(const QList<UnsavedItem> &unsaved);
    /// The item in whose row the keyboard is, empty for none. One that is just being typed is handed over.
    QString itemWithKeyboard();
    /// Asks for the date of that item; false where there is none.
    bool requestDate();
    void dress();

Q_SIGNALS:
    void itemToggled(const QString &sid);
    void itemTitleEdited(const QString &sid, const QString &title);
    /// A new item behind that one; an empty id is the place before the first.
    void itemAdded(const QString &afterSid, const QString &title);
    void itemRemoved(const QString &sid);
    /// Another date is to be chosen, in a frame whose corner is there.
    void itemDateRequested(const QString &sid, const QPoint &position);
    void itemDateCleared(const QString &sid);

private:
    ChecklistItemRow *makeRow();
    ChecklistItemRow *rowFor(const KWChecklistItemModel &item, const QString &previousSid);
    ChecklistItemRow &addDraft(int place, const QString &title);
    void drop(ChecklistItemRow *row);
    void handOver(ChecklistItemRow &row, const QString &title);
    void enterNext(ChecklistItemRow &row);
    void remove(ChecklistItemRow &row);
    void moveFocus(const ChecklistItemRow &from, int by);
    QString sidBefore(const ChecklistItemRow &row) const;
    void requestDateOf(ChecklistItemRow &row);
    ChecklistItemRow *rowWithKeyboard() const;

    CXClock &m_clock;
    QList<ChecklistItemRow *> m_rows;
    QVBoxLayout *m_layout;
    QAbstractButton *m_addButton;
};
