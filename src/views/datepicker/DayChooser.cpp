#include "views/datepicker/DayChooser.h"

#include "model/settings/KWLocalizedString.h"
#include "views/controls/IconButton.h"
#include "views/datepicker/MonthView.h"
#include "views/theme/Fonts.h"
#include "views/theme/Metrics.h"
#include "views/wording/CalendarDay.h"

#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QPushButton>
#include <QTableView>

using namespace Qt::StringLiterals;

DayChooser::DayChooser(const Days &days, QWidget *parent)
    : QWidget(parent), m_month(new MonthView{days.today, days.firstWeekday, this})
{
    auto *choices = new QHBoxLayout;
    choices->setSpacing(Metrics::grid);
    addChoice(*choices, "pickToday", KWLocalizedString("Today"), days.today);
    addChoice(*choices, "pickTomorrow", KWLocalizedString("Tomorrow"), days.today + std::chrono::days{1});
    addChoice(*choices, "pickNextWeek", KWLocalizedString("Next Week"),
              mondayOfNextWeek(days.today, days.firstWeekday));
    if (days.offersNone) addChoice(*choices, "pickNoDate", KWLocalizedString("No Date"), std::nullopt);

    auto *column = new QVBoxLayout{this};
    column->setContentsMargins({});
    column->addLayout(choices);
    column->addLayout(makeHead());
    column->addWidget(m_month);

    // The month keeps Escape to itself.
    if (auto *table = m_month->findChild<QTableView *>()) {
        table->installEventFilter(this);
        table->setAccessibleName(m_month->accessibleName());
    }
    select(days.selected.value_or(days.today));
    connect(m_month, &QCalendarWidget::activated, this,
            [this](const QDate &date) { Q_EMIT dayActivated(dayOf(date)); });
    connect(m_month, &QCalendarWidget::clicked, this,
            [this](const QDate &date) { Q_EMIT dayClicked(dayOf(date)); });
    connect(m_month, &QCalendarWidget::selectionChanged, this, [this] { Q_EMIT daySelected(selectedDay()); });
}

Day DayChooser::selectedDay() const { return dayOf(m_month->selectedDate()); }

void DayChooser::select(Day day) { m_month->setSelectedDate(dateOf(day)); }

void DayChooser::focusMonth() { m_month->setFocus(Qt::PopupFocusReason); }

void DayChooser::addChoice(QBoxLayout &row, const char *name, const QString &text, std::optional<Day> day)
{
    auto *button = new QPushButton{text, this};
    button->setObjectName(QLatin1StringView{name});
    button->setAccessibleName(text);
    button->setAutoDefault(true);
    connect(button, &QPushButton::clicked, this, [this, day] { Q_EMIT choiceMade(day); });
    row.addWidget(button);
}

QLayout *DayChooser::makeHead()
{
    auto *title = new QLabel;
    title->setObjectName(u"datePickerTitle"_s);
    title->setFont(Fonts::font(Fonts::Role::BodyStrong));
    const auto showTitle = [this, title] { title->setText(m_month->title()); };
    connect(m_month, &QCalendarWidget::currentPageChanged, title, showTitle);
    showTitle();

    auto *before = new IconButton{Icon::ChevronRight, KWLocalizedString("Month before")};
    before->setMirrored(true);
    before->setObjectName(u"monthBefore"_s);
    connect(before, &QAbstractButton::clicked, m_month, &QCalendarWidget::showPreviousMonth);
    auto *after = new IconButton{Icon::ChevronRight, KWLocalizedString("Month after")};
    after->setObjectName(u"monthAfter"_s);
    connect(after, &QAbstractButton::clicked, m_month, &QCalendarWidget::showNextMonth);

    auto *head = new QHBoxLayout;
    head->setContentsMargins(Metrics::gap, 0, 0, 0);
    head->setSpacing(Metrics::grid);
    head->addWidget(title, 1);
    for (IconButton *each : {before, after}) {
        each->setAutoRepeat(true);
        head->addWidget(each);
    }
    return head;
}

bool DayChooser::eventFilter(QObject *watched, QEvent *event)
{
    if (event->type() == QEvent::KeyPress && static_cast<QKeyEvent *>(event)->key() == Qt::Key_Escape) {
        window()->close();
        return true;
    }
    return QWidget::eventFilter(watched, event);
}
