#pragma once

#include "focus/FocusPageContent.h"
#include "habits/HabitDetailContent.h"

#include <QWidget>

#include <optional>

class HabitAmountChart;
class HabitFigureView;
class HabitMonthGrid;
class HabitNoteList;
class HabitTodayCard;
class HabitYearMap;
class IconButton;
class PillButton;
class QLabel;
class ScrollColumn;

/// The right column for a habit: figures, the days of a month, what is done today, the year, and the notes of
/// the month. Without a habit it is empty.
class HabitDetailView : public QWidget {
    Q_OBJECT

public:
    explicit HabitDetailView(QWidget *parent = nullptr);

    void setContent(const std::optional<HabitDetailContent> &content, std::chrono::weekday firstWeekday);
    /// Of the habit on show.
    void setFocusOfHabit(const FocusOfHabit &focus);
    /// Shows a button that closes the pane, which lies over another then.
    void setHasClose(bool hasClose);
    HabitNoteList &notes() { return *m_notes; }

Q_SIGNALS:
    void closeRequested();
    void monthsTurned(int months);
    /// `place` is its circle on the screen.
    void dayChosen(Day day, const QRect &place);
    void checkRequested(Day day, bool takesBack);
    void restoreRequested();

protected:
    void paintEvent(QPaintEvent *event) override;

private:
    QLayout *makeHead();
    QLayout *makeFigures();
    QLayout *makeMonthHead();
    QWidget *makeArchivedLine();
    void connectParts();
    void showFigures(const HabitDetailContent &content);
    void showNotes(const HabitDetailContent &content);

    ScrollColumn *m_page;
    QLabel *m_name;
    IconButton *m_close;
    QWidget *m_archived;
    PillButton *m_restore;
    HabitFigureView *m_done;
    HabitFigureView *m_streak;
    HabitFigureView *m_rate;
    QLabel *m_monthName;
    IconButton *m_monthBefore;
    IconButton *m_monthAfter;
    HabitMonthGrid *m_month;
    HabitTodayCard *m_today;
    QLabel *m_focus;
    QLabel *m_yearName;
    HabitYearMap *m_year;
    QLabel *m_chartName;
    HabitAmountChart *m_chart;
    QLabel *m_notesName;
    HabitNoteList *m_notes;
};
