#pragma once

#include "corvexkit/time/CXTimeZone.h"
#include "focus/FocusPageContent.h"

#include <QListView>

class QMenu;
class QStandardItemModel;

/// Focus records, the latest first, as high as its rows. Enter or a click opens one, Delete deletes it.
class FocusRecordList : public QListView {
    Q_OBJECT

public:
    explicit FocusRecordList(QWidget *parent = nullptr);

    /// The row that has the keyboard keeps it.
    void setRecords(const QList<FocusRecordRow> &records, Day today, const CXTimeZone &zone);
    const FocusRecordRow *record(const QString &recordID) const;
    QString currentRecord() const;

Q_SIGNALS:
    void editRequested(const QString &recordID);
    void removalRequested(const QString &recordID);
    /// Of the task or habit it was spent on.
    void targetRequested(const FocusTarget &target);

protected:
    void keyPressEvent(QKeyEvent *event) override;
    void contextMenuEvent(QContextMenuEvent *event) override;
    void focusInEvent(QFocusEvent *event) override;

private:
    void fillMenu(QMenu &menu, const FocusRecordRow &record);

    QStandardItemModel *m_model;
    QList<FocusRecordRow> m_records;
};
