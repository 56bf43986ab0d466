#include "views/habits/HabitDetailView.h"

#include "model/settings/KWLocalizedString.h"
#include "model/text/DayText.h"
#include "views/controls/IconButton.h"
#include "views/controls/PillButton.h"
#include "views/controls/PlainLabel.h"
#include "views/controls/ScrollColumn.h"
#include "views/controls/TabOrder.h"
#include "views/focus/FocusWording.h"
#include "views/habits/HabitAmountChart.h"
#include "views/habits/HabitFigureView.h"
#include "views/habits/HabitMonthGrid.h"
#include "views/habits/HabitNoteList.h"
#include "views/habits/HabitPhrases.h"
#include "views/habits/HabitTodayCard.h"
#include "views/habits/HabitYearMap.h"
#include "views/theme/Metrics.h"
#include "views/theme/Theme.h"

#include <QApplication>
#include <QLabel>
#include <QPainter>
#include <QStyle>
#include <QVBoxLayout>

using namespace Qt::StringLiterals;

namespace {

QLabel *makeHeading() { return makePlainLabel({}, Fonts::Role::BodyStrong); }

} // namespace

HabitDetailView::HabitDetailView(QWidget *parent)
    : QWidget(parent)
    , m_name(makePlainLabel({}, Fonts::Role::DetailTitle))
    , m_close(new IconButton{Icon::Close, KWLocalizedString("Close")})
    , m_restore(new PillButton{KWLocalizedString("Restore"), PillButton::Look::Filled})
    , m_done(new HabitFigureView{"habitDone"})
    , m_streak(new HabitFigureView{"habitStreak"})
    , m_rate(new HabitFigureView{"habitRate"})
    , m_monthName(makeHeading())
    , m_monthBefore(new IconButton{Icon::ChevronRight, KWLocalizedString("Month before")})
    , m_monthAfter(new IconButton{Icon::ChevronRight, KWLocalizedString("Month after")})
    , m_month(new HabitMonthGrid)
    , m_today(new HabitTodayCard)
    , m_focus(makePlainLabel({}, Fonts::Role::Secondary, QPalette::PlaceholderText))
    , m_yearName(makeHeading())
    , m_year(new HabitYearMap)
    , m_chartName(makeHeading())
    , m_chart(new HabitAmountChart)
    , m_notesName(makeHeading())
    , m_notes(new HabitNoteList)
{
    setObjectName(u"habitDetail"_s);
    setAccessibleName(KWLocalizedString("Habit"));
    auto *parts = new QWidget;
    auto *column = new QVBoxLayout{parts};
    column->setContentsMargins(Metrics::sideMargin, Metrics::gap + Metrics::grid, Metrics::sideMargin,
                               Metrics::margin);
    column->setSpacing(Metrics::gap);
    column->addLayout(makeHead());
    column->addWidget(m_archived = makeArchivedLine());
    column->addLayout(makeFigures());
    column->addLayout(makeMonthHead());
    column->addWidget(m_month);
    column->addWidget(m_today);
    m_focus->setObjectName(u"habitFocus"_s);
    column->addWidget(m_focus);
    for (QWidget *each : QWidgetList{m_chartName, m_chart, m_notesName, m_notes, m_yearName, m_year})
        column->addWidget(each);
    column->addStretch(1);
    m_page = new ScrollColumn{parts};
    auto *layout = new QVBoxLayout{this};
    layout->setContentsMargins({});
    layout->addWidget(m_page);
    connectParts();
    setFocusProxy(m_month);
    m_page->hide();
}

QLayout *HabitDetailView::makeHead()
{
    m_name->setObjectName(u"habitName"_s);
    m_close->setObjectName(u"closeHabit"_s);
    m_close->hide();
    auto *row = new QHBoxLayout;
    row->addWidget(m_name, 1);
    row->addWidget(m_close, 0, Qt::AlignTop);
    return row;
}

QWidget *HabitDetailView::makeArchivedLine()
{
    m_restore->setObjectName(u"restoreHabit"_s);
    auto *line = new QWidget;
    auto *row = new QHBoxLayout{line};
    row->setContentsMargins({});
    row->addWidget(makePlainLabel(KWLocalizedString("Archived. It keeps its days, and no more come due."),
                                  Fonts::Role::Secondary, QPalette::PlaceholderText),
                   1);
    row->addWidget(m_restore);
    return line;
}

QLayout *HabitDetailView::makeFigures()
{
    auto *row = new QHBoxLayout;
    row->setSpacing(Metrics::gap);
    row->addWidget(m_done, 4);
    row->addWidget(m_streak, 3);
    row->addWidget(m_rate, 3);
    return row;
}

QLayout *HabitDetailView::makeMonthHead()
{
    m_monthName->setObjectName(u"habitMonthName"_s);
    m_monthBefore->setObjectName(u"habitMonthBefore"_s);
    m_monthBefore->setMirrored(true);
    m_monthAfter->setObjectName(u"habitMonthAfter"_s);
    auto *row = new QHBoxLayout;
    row->setSpacing(0);
    row->addWidget(m_monthName, 1);
    for (IconButton *each : {m_monthBefore, m_monthAfter}) {
        each->setAutoRepeat(true);
        row->addWidget(each);
    }
    return row;
}

void HabitDetailView::connectParts()
{
    connect(m_close, &QAbstractButton::clicked, this, &HabitDetailView::closeRequested);
    connect(m_restore, &QAbstractButton::clicked, this, &HabitDetailView::restoreRequested);
    connect(m_monthBefore, &QAbstractButton::clicked, this, [this] { Q_EMIT monthsTurned(-1); });
    connect(m_monthAfter, &QAbstractButton::clicked, this, [this] { Q_EMIT monthsTurned(1); });
    connect(m_month, &HabitMonthGrid::monthsTurned, this, &HabitDetailView::monthsTurned);
    connect(m_month, &HabitMonthGrid::dayChosen, this, &HabitDetailView::dayChosen);
    connect(m_today, &HabitTodayCard::checkRequested, this, &HabitDetailView::checkRequested);
}

void HabitDetailView::setFocusOfHabit(const FocusOfHabit &focus)
{
    m_focus->setText(FocusWording::ofHabit(focus));
    m_focus->setVisible(!m_focus->text().isEmpty());
}

void HabitDetailView::setHasClose(bool hasClose) { m_close->setVisible(hasClose); }

void HabitDetailView::setContent(const std::optional<HabitDetailContent> &content,
                                 std::chrono::weekday firstWeekday)
{
    m_page->setVisible(content.has_value());
    update();
    if (!content) return;
    m_name->setText(content->habit.name);
    m_archived->setVisible(content->habit.isArchived);
    showFigures(*content);
    m_monthName->setText(locale().toString(dateOf(content->month), u"MMMM yyyy"_s));
    m_month->setMonth(*content, firstWeekday);
    m_today->setVisible(!content->habit.isArchived);
    m_today->setDay(content->habit, content->ofToday);
    m_yearName->setText(locale().toString(dateOf(content->month), u"yyyy"_s));
    m_year->setYear(*content, firstWeekday);
    m_chartName->setText(KWLocalizedString("Each day"));
    m_chartName->setVisible(content->habit.isRealType);
    m_chart->setVisible(content->habit.isRealType);
    m_chart->setMonth(*content);
    showNotes(*content);
}

void HabitDetailView::showFigures(const HabitDetailContent &content)
{
    const KWHabitModel &habit = content.habit;
    const bool isThisMonth =
        content.monthDays().first().day <= content.today && content.today <= content.monthDays().last().day;
    m_done->setFigure(locale().toString(content.ofMonth.done),
                      isThisMonth ? KWLocalizedString("done this month")
                                  : KWLocalizedString("done that month"),
                      KWLocalizedString("%1 in all").arg(locale().toString(content.ofAll.done)));
    m_streak->setFigure(locale().toString(habit.currentStreak),
                        HabitPhrases::countsWeeks(habit) ? KWLocalizedString("week streak")
                                                         : KWLocalizedString("day streak"),
                        KWLocalizedString("longest %1").arg(locale().toString(habit.longestStreak)));
    const std::optional<int> rate = content.ofMonth.rate();
    m_rate->setFigure(rate ? KWLocalizedString("%1%").arg(locale().toString(*rate)) : u"–"_s,
                      KWLocalizedString("of due days"));
}

void HabitDetailView::showNotes(const HabitDetailContent &content)
{
    const bool hadKeyboard = m_notes->isAncestorOf(QApplication::focusWidget());
    m_notes->setNotes(content);
    m_notesName->setText(KWLocalizedString("Notes"));
    for (QWidget *each : QWidgetList{m_notesName, m_notes})
        each->setVisible(!content.notes.isEmpty());
    if (hadKeyboard && !m_notes->isAncestorOf(QApplication::focusWidget()))
        m_month->setFocus(Qt::OtherFocusReason);
    setTabOrderOf(controlsInOrder(*m_page->widget()));
}

// Without a habit, a hint where the detail will be.
void HabitDetailView::paintEvent(QPaintEvent *)
{
    QPainter painter{this};
    painter.fillRect(rect(), Theme::current().window);
    // Over the list it has an edge of its own; beside it the splitter draws one.
    if (autoFillBackground())
        painter.fillRect(QStyle::visualRect(layoutDirection(), rect(), {0, 0, 1, height()}),
                         Theme::current().popupEdge);
    if (!m_page->isHidden()) return;
    painter.setFont(Fonts::font(Fonts::Role::Body));
    painter.setPen(Theme::current().faintText);
    painter.drawText(rect().adjusted(Metrics::margin, height() / 4, -Metrics::margin, 0),
                     Qt::AlignHCenter | Qt::TextWordWrap,
                     KWLocalizedString("Select a habit to see its days"));
}
