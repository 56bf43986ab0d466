#pragma once

#include "corvexkit/time/CXTimeZone.h"
#include "focus/FocusPageContent.h"

#include <QWidget>

class FocusDaysChart;
class FocusFigureCard;
class FocusRecordList;
class FocusStatisticsView;
class IconButton;
class QLabel;
class TextButton;

/// The right column of focus: what was done today, the records, the last days and the statistics.
class FocusSideView : public QWidget {
    Q_OBJECT

public:
    explicit FocusSideView(QWidget *parent = nullptr);

    void setContent(const FocusPageContent &content, const CXTimeZone &zone);
    FocusRecordList &records() { return *m_records; }
    /// Shows a button that closes the column, which lies over the session then.
    void setHasClose(bool hasClose);

Q_SIGNALS:
    void closeRequested();
    void creationRequested();
    void moreRecordsRequested();
    void periodRequested(const FocusPeriod &period);

protected:
    void paintEvent(QPaintEvent *event) override;

private:
    QLayout *makeUpperPart();
    QLayout *makeLowerPart();
    QLayout *makeHead();
    QLayout *makeRecordsHead();
    void showToday(const FocusPageContent &content);

    IconButton *m_close;
    FocusFigureCard *m_pomos;
    FocusFigureCard *m_focused;
    IconButton *m_add;
    QLabel *m_noRecords;
    FocusRecordList *m_records;
    TextButton *m_more;
    FocusDaysChart *m_week;
    FocusStatisticsView *m_statistics;
};
