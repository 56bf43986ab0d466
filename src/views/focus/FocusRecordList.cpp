#include "views/focus/FocusRecordList.h"

#include "model/settings/KWLocalizedString.h"
#include "views/focus/FocusRecordDelegate.h"
#include "views/focus/FocusWording.h"
#include "views/wording/DateWording.h"

#include <QContextMenuEvent>
#include <QMenu>
#include <QStandardItemModel>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

QString titleOfRecord(const FocusRecordRow &record)
{
    const QString title = record.mainSubject().title.simplified();
    const QString first = title.isEmpty() ? FocusWording::nothingInParticular() : title;
    const qsizetype others = record.subjects.size() - 1;
    return others == 0 ? first
                       : KWLocalizedString("%1 and %2 more").arg(first).arg(QLocale{}.toString(others));
}

QString timesOfRecord(const FocusRecordRow &record, const CXTimeZone &zone)
{
    const QLocale locale;
    return DateWording::timeOfDay(zone.toLocal(record.startDate), locale) + u" – "_s +
           DateWording::timeOfDay(zone.toLocal(record.endDate), locale);
}

QString dayOfRecord(const FocusRecordRow &record, Day today, const CXTimeZone &zone)
{
    return DateWording::relativeDay(zone.dayOf(record.startDate), today, QLocale{});
}

// The times of a Pomo of today, the length of what the stopwatch has timed and of what was on another day.
QString noteOfRecord(const FocusRecordRow &record, Day today, const CXTimeZone &zone)
{
    const QString length = FocusWording::length(record.focused);
    if (zone.dayOf(record.startDate) != today) return dayOfRecord(record, today, zone) + u", "_s + length;
    return record.type == KWFocusTypeStopwatch ? KWLocalizedString("Stopwatch, %1").arg(length)
                                               : timesOfRecord(record, zone);
}

// All that is known of it.
QString descriptionOfRecord(const FocusRecordRow &record, Day today, const CXTimeZone &zone)
{
    const QString length = FocusWording::length(record.focused);
    return QStringList{titleOfRecord(record), dayOfRecord(record, today, zone), timesOfRecord(record, zone),
                       record.type == KWFocusTypeStopwatch ? KWLocalizedString("Stopwatch, %1").arg(length)
                                                           : length}
        .join(u", "_s);
}

} // namespace

FocusRecordList::FocusRecordList(QWidget *parent) : QListView(parent), m_model(new QStandardItemModel{this})
{
    setObjectName(u"focusRecords"_s);
    setAccessibleName(KWLocalizedString("Records"));
    setFrameShape(QFrame::NoFrame);
    viewport()->setAutoFillBackground(false);
    setUniformItemSizes(true);
    setMouseTracking(true);
    setEditTriggers(NoEditTriggers);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setItemDelegate(new FocusRecordDelegate{this});
    setModel(m_model);
    connect(this, &QListView::clicked, this, [this](const QModelIndex &index) {
        Q_EMIT editRequested(index.data(FocusRecordDelegate::RecordRole).toString());
    });
}

void FocusRecordList::setRecords(const QList<FocusRecordRow> &records, Day today, const CXTimeZone &zone)
{
    const QString kept = currentRecord();
    m_records = records;
    m_model->clear();
    for (const FocusRecordRow &each : records) {
        auto *item = new QStandardItem{titleOfRecord(each)};
        const QString description = descriptionOfRecord(each, today, zone);
        item->setData(each.recordID, FocusRecordDelegate::RecordRole);
        item->setData(each.mainSubject().color, FocusRecordDelegate::ColorRole);
        item->setData(noteOfRecord(each, today, zone), FocusRecordDelegate::NoteRole);
        item->setData(description, Qt::AccessibleTextRole);
        item->setToolTip(description);
        m_model->appendRow(item);
        if (each.recordID == kept) setCurrentIndex(item->index());
    }
    setVisible(!records.isEmpty());
    const int row = records.isEmpty() ? 0 : sizeHintForRow(0);
    setFixedHeight(row * int(records.size()));
}

const FocusRecordRow *FocusRecordList::record(const QString &recordID) const
{
    const auto found = std::ranges::find(m_records, recordID, &FocusRecordRow::recordID);
    return found == m_records.end() ? nullptr : &*found;
}

QString FocusRecordList::currentRecord() const
{
    return currentIndex().data(FocusRecordDelegate::RecordRole).toString();
}

void FocusRecordList::keyPressEvent(QKeyEvent *event)
{
    const QString current = currentRecord();
    if (current.isEmpty()) return QListView::keyPressEvent(event);
    switch (event->key()) {
    case Qt::Key_Return:
    case Qt::Key_Enter:
    case Qt::Key_F2:
        return Q_EMIT editRequested(current);
    case Qt::Key_Delete:
    case Qt::Key_Backspace:
        return Q_EMIT removalRequested(current);
    default:
        QListView::keyPressEvent(event);
    }
}

void FocusRecordList::focusInEvent(QFocusEvent *event)
{
    if (!currentIndex().isValid()) setCurrentIndex(m_model->index(0, 0));
    QListView::focusInEvent(event);
}

void FocusRecordList::contextMenuEvent(QContextMenuEvent *event)
{
    const bool isByKey = event->reason() == QContextMenuEvent::Keyboard;
    const QModelIndex index = isByKey ? currentIndex() : indexAt(event->pos());
    const auto *found = record(index.data(FocusRecordDelegate::RecordRole).toString());
    if (!found) return;
    setCurrentIndex(index);
    auto *menu = new QMenu{this};
    menu->setAttribute(Qt::WA_DeleteOnClose);
    menu->setObjectName(u"focusRecordMenu"_s);
    fillMenu(*menu, *found);
    menu->popup(isByKey ? viewport()->mapToGlobal(visualRect(index).bottomLeft()) : event->globalPos());
}

void FocusRecordList::fillMenu(QMenu &menu, const FocusRecordRow &record)
{
    const QString id = record.recordID;
    menu.addAction(KWLocalizedString("Edit…"), this, [this, id] { Q_EMIT editRequested(id); });
    for (const FocusSubject &each : record.subjects) {
        if (!each.isThere) continue;
        const QString words = record.subjects.size() > 1 ? KWLocalizedString("Go to “%1”").arg(each.title)
                              : each.target.kind == FocusTarget::Kind::Habit
                                  ? KWLocalizedString("Go to Habit")
                                  : KWLocalizedString("Go to Task");
        menu.addAction(words, this, [this, target = each.target] { Q_EMIT targetRequested(target); });
    }
    menu.addSeparator();
    menu.addAction(KWLocalizedString("Delete"), this, [this, id] { Q_EMIT removalRequested(id); });
}
