#include "views/datepicker/DatePicker.h"

#include "model/settings/KWLocalizedString.h"
#include "views/controls/IconButton.h"
#include "views/datepicker/MonthView.h"
#include "views/theme/Fonts.h"
#include "views/theme/Metrics.h"
#include "views/theme/PopupFrame.h"
#include "views/wording/CalendarDay.h"

#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QPainter>
#include <QPushButton>
#include <QScreen>
#include <QTableView>

using namespace Qt::StringLiterals;

DatePicker::DatePicker(const Days &days, QWidget *parent)
    : QFrame(parent, Qt::Popup | Qt::FramelessWindowHint)
    , m_month(new MonthView{days.today, days.firstWeekday, this})
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
    column->addLayout(makeHead());
    column->addWidget(m_month);

    // The month answers to Enter itself, but only where its table has the focus.
    if (auto *table = m_month->findChild<QTableView *>()) table->installEventFilter(this);
    m_month->setSelectedDate(dateOf(days.selected.value_or(days.today)));
    connect(m_month, &QCalendarWidget::activated, this, [this](const QDate &date) { pick(dayOf(date)); });
    connect(m_month, &QCalendarWidget::clicked, this, [this](const QDate &date) { pick(dayOf(date)); });
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

QLayout *DatePicker::makeHead()
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
    m_month->setFocus(Qt::PopupFocusReason);
}

void DatePicker::paintEvent(QPaintEvent *)
{
    QPainter painter{this};
    PopupFrame::paint(painter, rect());
}

void DatePicker::resizeEvent(QResizeEvent *event)
{
    QFrame::resizeEvent(event);
    setMask(PopupFrame::shape(rect()));
}
