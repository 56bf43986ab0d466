#include "views/taskdetail/ChecklistView.h"

#include "model/records/OneLine.h"
#include "model/settings/KWLocalizedString.h"
#include "views/controls/AddButton.h"
#include "views/controls/CommittingTextEdit.h"
#include "views/taskdetail/ChecklistItemRow.h"
#include "views/theme/Metrics.h"

#include <QVBoxLayout>

#include <algorithm>

using namespace Qt::StringLiterals;

ChecklistView::ChecklistView(CXClock &clock, QWidget *parent)
    : QWidget(parent)
    , m_clock(clock)
    , m_layout(new QVBoxLayout{this})
    , m_addButton(new AddButton{KWLocalizedString("Add an item"), this})
{
    setObjectName(u"checklist"_s);
    setAccessibleName(KWLocalizedString("Checklist"));
    m_addButton->setObjectName(u"addChecklistItem"_s);
    m_layout->setContentsMargins({});
    m_layout->setSpacing(0);
    m_layout->addWidget(m_addButton);
    connect(m_addButton, &QAbstractButton::clicked, this,
            [this] { addDraft(int(m_rows.size()), {}).editor().setFocus(); });
}

void ChecklistView::startWith(const QList<KWChecklistItemModel> &items)
{
    while (!m_rows.isEmpty())
        drop(m_rows.last());
    setItems(items);
}

void ChecklistView::setReadOnly(bool isReadOnly)
{
    m_addButton->setVisible(!isReadOnly);
    for (ChecklistItemRow *each : std::as_const(m_rows))
        each->setReadOnly(isReadOnly);
}

void ChecklistView::setItems(const QList<KWChecklistItemModel> &items)
{
    // What is being typed outlives its item, as a new one.
    for (ChecklistItemRow *row : std::as_const(m_rows)) {
        const auto isRow = [row](const KWChecklistItemModel &item) { return item.sid == row->sid(); };
        if (!row->isDraft() && row->editor().hasUncommittedText() &&
            std::none_of(items.begin(), items.end(), isRow))
            row->becomeDraft();
    }
    QList<ChecklistItemRow *> rows;
    QString previousSid;
    for (const KWChecklistItemModel &item : items) {
        ChecklistItemRow *row = rowFor(item, previousSid);
        row->setItem(item);
        rows.append(row);
        previousSid = item.sid;
    }
    // A draft stays behind the row it was begun behind.
    for (int i = 0; i < m_rows.size(); ++i) {
        if (!m_rows.at(i)->isDraft()) continue;
        const qsizetype before = i == 0 ? -1 : rows.indexOf(m_rows.at(i - 1));
        rows.insert(i > 0 && before < 0 ? rows.size() : before + 1, m_rows.at(i));
    }
    for (ChecklistItemRow *row : QList{m_rows})
        if (!rows.contains(row)) drop(row);
    m_rows = rows;
    for (int i = 0; i < m_rows.size(); ++i)
        if (m_layout->indexOf(m_rows.at(i)) != i) m_layout->insertWidget(i, m_rows.at(i));
}

// The row of the item, else a draft that was handed over as this item, else a new row.
ChecklistItemRow *ChecklistView::rowFor(const KWChecklistItemModel &item, const QString &previousSid)
{
    for (ChecklistItemRow *row : m_rows)
        if (row->sid() == item.sid) return row;
    for (ChecklistItemRow *row : m_rows)
        if (row->isDraft() && onOneLine(row->editor().committedText()) == item.title &&
            !item.title.isEmpty() && sidBefore(*row) == previousSid)
            return row;
    ChecklistItemRow *row = makeRow();
    row->editor().startWith(item.title);
    return row;
}

ChecklistItemRow *ChecklistView::makeRow()
{
    auto *row = new ChecklistItemRow{m_clock, this};
    CommittingTextEdit &editor = row->editor();
    connect(row, &ChecklistItemRow::toggled, this, [this, row] {
        if (!row->isDraft()) Q_EMIT itemToggled(row->sid());
    });
    connect(row, &ChecklistItemRow::dateRequested, this, [this, row] { requestDateOf(*row); });
    connect(row, &ChecklistItemRow::dateCleared, this, [this, row] { Q_EMIT itemDateCleared(row->sid()); });
    connect(&editor, &CommittingTextEdit::committed, this,
            [this, row](const QString &title) { handOver(*row, title); });
    connect(&editor, &CommittingTextEdit::editingFinished, this, [this, row] {
        if (row->isDraft() && row->editor().text().isEmpty()) drop(row);
    });
    connect(&editor, &CommittingTextEdit::entered, this, [this, row] { enterNext(*row); });
    connect(&editor, &CommittingTextEdit::backspacedAtStart, this, [this, row] {
        if (row->editor().text().isEmpty()) remove(*row);
    });
    connect(&editor, &CommittingTextEdit::leftUpwards, this, [this, row] { moveFocus(*row, -1); });
    connect(&editor, &CommittingTextEdit::leftDownwards, this, [this, row] { moveFocus(*row, 1); });
    return row;
}

ChecklistItemRow &ChecklistView::addDraft(int place, const QString &title)
{
    ChecklistItemRow *row = makeRow();
    m_rows.insert(place, row);
    m_layout->insertWidget(place, row);
    row->show();
    row->editor().insertPlainText(title);
    row->editor().moveCursor(QTextCursor::Start);
    return *row;
}

void ChecklistView::drop(ChecklistItemRow *row)
{
    m_rows.removeOne(row);
    m_layout->removeWidget(row);
    row->disconnect(this);
    row->editor().disconnect(this);
    row->hide();
    row->deleteLater();
}

void ChecklistView::handOver(ChecklistItemRow &row, const QString &title)
{
    if (!row.isDraft())
        Q_EMIT itemTitleEdited(row.sid(), title);
    else if (!title.isEmpty())
        Q_EMIT itemAdded(sidBefore(row), title);
}

QString ChecklistView::sidBefore(const ChecklistItemRow &row) const
{
    QString before;
    for (const ChecklistItemRow *each : m_rows) {
        if (each == &row) break;
        if (!each->isDraft()) before = each->sid();
    }
    return before;
}

void ChecklistView::enterNext(ChecklistItemRow &row)
{
    CommittingTextEdit &editor = row.editor();
    const int place = int(m_rows.indexOf(&row));
    if (onOneLine(editor.text()).isEmpty()) {
        m_addButton->setFocus(); // leaving it empty drops it, or brings back what stood there
        return;
    }
    QTextCursor behind = editor.textCursor();
    if (onOneLine(editor.text().left(behind.selectionStart())).isEmpty()) {
        addDraft(place, {}).editor().setFocus();
        return;
    }
    behind.movePosition(QTextCursor::End, QTextCursor::KeepAnchor);
    const QString rest = behind.selectedText();
    ChecklistItemRow &next = addDraft(place + 1, rest);
    // The new item is kept before the old one is cut short.
    next.editor().commit();
    behind.removeSelectedText();
    editor.commit();
    next.editor().setFocus();
}

void ChecklistView::remove(ChecklistItemRow &row)
{
    const QString sid = row.sid();
    const qsizetype place = m_rows.indexOf(&row);
    if (place > 0)
        m_rows.at(place - 1)->editor().setFocus();
    else if (m_rows.size() > 1)
        m_rows.at(1)->editor().setFocus();
    else
        m_addButton->setFocus();
    if (m_rows.contains(&row)) drop(&row);
    if (!sid.isEmpty()) Q_EMIT itemRemoved(sid);
}

void ChecklistView::moveFocus(const ChecklistItemRow &from, int by)
{
    const qsizetype place = m_rows.indexOf(&from) + by;
    if (place >= 0 && place < m_rows.size())
        m_rows.at(place)->editor().setFocus();
    else if (place == m_rows.size())
        m_addButton->setFocus();
}

void ChecklistView::requestDateOf(ChecklistItemRow &row)
{
    if (row.isDraft()) row.editor().commit(); // becomes an item
    if (!row.isDraft()) Q_EMIT itemDateRequested(row.sid(), row.datePlace());
}

ChecklistItemRow *ChecklistView::rowWithKeyboard() const
{
    const auto row =
        std::ranges::find_if(m_rows, [](const ChecklistItemRow *each) { return each->hasKeyboard(); });
    return row == m_rows.end() ? nullptr : *row;
}

QString ChecklistView::itemWithKeyboard()
{
    ChecklistItemRow *row = rowWithKeyboard();
    if (row && row->isDraft()) row->editor().commit();
    return row ? row->sid() : QString{};
}

bool ChecklistView::requestDate()
{
    if (itemWithKeyboard().isEmpty()) return false;
    requestDateOf(*rowWithKeyboard());
    return true;
}

void ChecklistView::commit()
{
    for (ChecklistItemRow *row : QList{m_rows})
        if (m_rows.contains(row)) row->editor().commit();
}

void ChecklistView::keepUnsaved(const QString &sid, const QString &afterSid, const QString &title)
{
    for (ChecklistItemRow *row : std::as_const(m_rows)) {
        CommittingTextEdit &editor = row->editor();
        if (row->sid() == sid && editor.committedText() == title &&
            (!sid.isEmpty() || sidBefore(*row) == afterSid))
            return editor.takeBackCommitted();
    }
}

QList<ChecklistView::UnsavedItem> ChecklistView::unsavedItems() const
{
    QList<UnsavedItem> unsaved;
    for (int place = 0; place < m_rows.size(); ++place) {
        ChecklistItemRow &row = *m_rows.at(place);
        if (row.editor().hasUncommittedText() && !row.editor().text().isEmpty())
            unsaved.append({row.sid(), place, sidBefore(row), row.editor().text()});
    }
    return unsaved;
}

void ChecklistView::retype(const QList<UnsavedItem> &unsaved)
{
    for (const UnsavedItem &each : unsaved) {
        const auto isItsRow = [&each](const ChecklistItemRow *row) { return row->sid() == each.sid; };
        const auto row = each.sid.isEmpty() ? m_rows.end() : std::ranges::find_if(m_rows, isItsRow);
        if (row != m_rows.end())
            (*row)->editor().retype(each.title);
        else
            addDraft(std::min(each.place, int(m_rows.size())), each.title);
    }
}

void ChecklistView::dress()
{
    for (ChecklistItemRow *row : std::as_const(m_rows))
        row->dress();
}
