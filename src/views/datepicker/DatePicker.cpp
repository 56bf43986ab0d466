#include "views/datepicker/DatePicker.h"

#include "model/settings/KWLocalizedString.h"
#include "views/theme/Metrics.h"
#include "views/theme/Painting.h"
#include "views/theme/Theme.h"
#include "views/wording/CalendarDay.h"

#include <QCalendarWidget>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QPainter>
#include <QPushButton>
#include <QScreen>
#include <QTableView>
#include <QTextCharFormat>

using namespace Qt::StringLiterals;

DatePicker::DatePicker(const Days &days, QWidget *parent)
    : QFrame(parent, Qt::Popup | Qt::FramelessWindowHint), m_calendar(new QCalendarWidget{this})
{
    setObjectName(u"datePicker"_s);
    setAccessibleName(KWLocalizedString("Date"));
    setAttribute(Qt::WA_DeleteOnClose);
    auto *choices = new QHBoxLayout;
    choices->setSpacing(Metrics::grid);
    addChoice(*choices, "pickToday", KWLocalizedString("Today"), days.today);
    addChoice(*choices, "pickTomorrow", KWLocalizedString("Tomorrow"), days.today + std::chrono::days{1});
    addChoice(*choices, "pickNextWeek", KWLocalizedString("Next Week"),
              mondayOfNextWeek(days.today, days.firstWeekday));
    addChoice(*choices, "pickNoDate", KWLocalizedString("No Date"), std::nullopt);

    auto *column = new QVBoxLayout{this};
    column->setContentsMargins(Metrics::gap, Metrics::gap, Metrics::gap, Metrics::gap);
    column->addLayout(choices);
    column->addWidget(m_calendar);

    dressCalendar(days.firstWeekday);
    m_calendar->setSelectedDate(dateOf(days.selected.value_or(days.today)));
    connect(m_calendar, &QCalendarWidget::activated, this, [this](const QDate &date) { pick(dayOf(date)); });
    connect(m_calendar, &QCalendarWidget::clicked, this, [this](const QDate &date) { pick(dayOf(date)); });
}

void DatePicker::addChoice(QBoxLayout &row, const char *name, const QString &text, std::optional<Day> day)
{
    auto *button = new QPushButton{text, this};
    button->setObjectName(QLatin1StringView{name});
    button->setAccessibleName(text);
    button->setAutoDefault(true);
    connect(button, &QPushButton::clicked, this, [this, day] { pick(day); });
    row.addWidget(button);
}

void DatePicker::dressCalendar(int firstWeekday)
{
    m_calendar->setObjectName(u"datePickerMonth"_s);
    m_calendar->setAccessibleName(KWLocalizedString("Month"));
    m_calendar->setFirstDayOfWeek(firstWeekday == 1 ? Qt::Sunday : Qt::DayOfWeek(firstWeekday - 1));
    m_calendar->setVerticalHeaderFormat(QCalendarWidget::NoVerticalHeader);
    m_calendar->setHorizontalHeaderFormat(QCalendarWidget::ShortDayNames);
    m_calendar->setDateEditEnabled(false);
    // The weekend is no warning.
    QTextCharFormat plain;
    plain.setForeground(Theme::current().text);
    for (const Qt::DayOfWeek day : {Qt::Saturday, Qt::Sunday})
        m_calendar->setWeekdayTextFormat(day, plain);
    // The month answers to Enter itself, but only where its table has the focus.
    if (auto *table = m_calendar->findChild<QTableView *>()) table->installEventFilter(this);
}

bool DatePicker::eventFilter(QObject *watched, QEvent *event)
{
    if (event->type() == QEvent::KeyPress && static_cast<QKeyEvent *>(event)->key() == Qt::Key_Escape) {
        close();
        return true;
    }
    return QFrame::eventFilter(watched, event);
}

void DatePicker::pick(std::optional<Day> day)
{
    Q_EMIT picked(day);
    close();
}

void DatePicker::popUp(const QPoint &position)
{
    adjustSize();
    const QRect screenBounds = parentWidget()->screen()->availableGeometry();
    move(std::clamp(position.x(), screenBounds.left(),
                    std::max(screenBounds.left(), screenBounds.right() - width())),
         std::clamp(position.y(), screenBounds.top(),
                    std::max(screenBounds.top(), screenBounds.bottom() - height())));
    show();
    m_calendar->setFocus(Qt::PopupFocusReason);
}

void DatePicker::paintEvent(QPaintEvent *)
{
    QPainter painter{this};
    painter.fillRect(rect(), Theme::current().popup);
    Painting::roundedBox(painter, QRectF{rect()}.adjusted(0.5, 0.5, -0.5, -0.5), 0, Theme::current().popup,
                         Theme::current().hairline);
}
