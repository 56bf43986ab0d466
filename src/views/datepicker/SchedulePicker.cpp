#include "views/datepicker/SchedulePicker.h"

#include "model/settings/KWLocalizedString.h"
#include "views/controls/PlainLabel.h"
#include "views/controls/ScrollColumn.h"
#include "views/controls/TabOrder.h"
#include "views/datepicker/DayChooser.h"
#include "views/datepicker/ReminderField.h"
#include "views/datepicker/TimeField.h"
#include "views/datepicker/ZoneButton.h"
#include "views/theme/Metrics.h"
#include "views/wording/DateWording.h"

#include <QFormLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QMouseEvent>
#include <QPushButton>
#include <QScrollArea>
#include <QScrollBar>
#include <QSpinBox>

using namespace Qt::StringLiterals;

namespace {

constexpr std::size_t shownOccurrences = 6;

CXTimeZone zoneOf(const TaskSchedule &schedule, const SchedulePicker::Surroundings &surroundings)
{
    const bool isOfHere = !surroundings.choosesZones || schedule.isFloating || schedule.dates.isAllDay();
    return isOfHere ? surroundings.zone : CXTimeZone::named(schedule.timeZone).value_or(surroundings.zone);
}

} // namespace

SchedulePicker::SchedulePicker(const TaskSchedule &schedule, const Surroundings &surroundings,
                               QWidget *parent)
    : PopupFrame(parent)
    , m_surroundings(surroundings)
    , m_draft(schedule, zoneOf(schedule, surroundings))
    , m_days(new DayChooser{{surroundings.today, m_draft.day(), surroundings.firstWeekday}})
    , m_details(new QWidget)
    , m_start(new TimeField)
    , m_end(new TimeField)
    , m_daysLater(new QSpinBox)
    , m_reminders(new ReminderField)
    , m_repeat(new RepeatRows{surroundings.readRule})
    , m_occurrences(makePlainLabel({}, Fonts::Role::Secondary, QPalette::PlaceholderText))
{
    setObjectName(u"schedulePicker"_s);
    setAccessibleName(KWLocalizedString("Date"));
    auto *rows = new QFormLayout{m_details};
    rows->setContentsMargins({});
    rows->setFieldGrowthPolicy(QFormLayout::AllNonFixedFieldsGrow);
    makeTimes(*rows);
    rows->addRow(KWLocalizedString("Remind"), m_reminders);
    rows->addRow(KWLocalizedString("Repeat"), m_repeat);
    if (surroundings.choosesZones) makeZones(*rows);
    alignLabels(*rows);
    for (int row = 1; surroundings.asksDayAndTimeAlone && row < rows->rowCount(); ++row)
        rows->setRowVisible(row, false);
    rows->addRow(m_occurrences);

    auto *inner = new QWidget;
    auto *column = new QVBoxLayout{inner};
    column->setContentsMargins(Metrics::gap, Metrics::gap, Metrics::gap, Metrics::gap);
    column->addWidget(m_days);
    column->addWidget(m_details);
    column->addStretch(1);
    column->addLayout(makeButtons());
    inner->installEventFilter(this); // a rule adds rows
    auto *frame = new QVBoxLayout{this};
    frame->setContentsMargins(1, 1, 1, 1);
    frame->addWidget(new ScrollColumn{inner});

    m_occurrences->setObjectName(u"occurrences"_s);
    connectDays();
    showDraft();
    m_repeat->setRepeat(m_draft.repeatRule, m_draft.repeatFrom, m_draft.day().value_or(surroundings.today));
    showOccurrences();
    setTabOrderOf(controlsInOrder(*this));
}

// Beside the first line of a field that has several.
void SchedulePicker::alignLabels(const QFormLayout &rows)
{
    for (int row = 0; row < rows.rowCount(); ++row)
        if (const QLayoutItem *label = rows.itemAt(row, QFormLayout::LabelRole))
            label->widget()->setFixedHeight(Metrics::scaled(Metrics::control));
}

void SchedulePicker::makeTimes(QFormLayout &rows)
{
    m_start->setObjectName(u"startTime"_s);
    m_start->setAccessibleName(KWLocalizedString("Time"));
    m_start->setPlaceholderText(KWLocalizedString("All day"));
    m_end->setObjectName(u"endTime"_s);
    m_end->setAccessibleName(KWLocalizedString("End, or how long it takes"));
    m_end->setPlaceholderText(KWLocalizedString("11:00, 1h 30m"));
    m_end->setTakesDuration(true);
    m_daysLater->setObjectName(u"daysLater"_s);
    m_daysLater->setRange(0, 366);
    m_daysLater->setButtonSymbols(QAbstractSpinBox::NoButtons);
    rows.addRow(KWLocalizedString("Time"), m_start);
    auto *end = new QHBoxLayout;
    end->addWidget(m_end, 1);
    end->addWidget(m_daysLater, 1);
    rows.addRow(KWLocalizedString("End"), end);

    connect(m_start, &TimeField::timeChanged, this, &SchedulePicker::setTime);
    connect(m_end, &TimeField::timeChanged, this, [this](std::optional<std::chrono::minutes> time) {
        m_draft.setEnd(time, m_draft.endTime() ? m_draft.daysLater() : 0);
        showDraft();
    });
    connect(m_end, &TimeField::durationTyped, this, [this](std::chrono::minutes duration) {
        m_draft.setDuration(duration);
        showDraft();
    });
    connect(m_daysLater, &QSpinBox::valueChanged, this, [this](int days) {
        needDay();
        m_draft.setDaysLater(m_draft.time() ? days : std::max(0, days - 1));
        showDraft();
    });
    connect(m_reminders, &ReminderField::remindersChanged, this,
            [this](const std::set<CXAlarmTrigger> &reminders) {
                if (!reminders.empty()) needDay();
                m_draft.reminders = reminders;
            });
    connect(m_repeat, &RepeatRows::repeatChanged, this, [this](const QString &rule, CXRecurrenceFrom from) {
        if (!rule.isEmpty()) needDay();
        m_draft.repeatRule = rule;
        m_draft.repeatFrom = from;
        showOccurrences();
    });
}

void SchedulePicker::makeZones(QFormLayout &rows)
{
    auto *zone = new ZoneButton;
    zone->setZone(m_draft.isFloating() ? std::nullopt : std::optional{m_draft.zone()});
    rows.addRow(KWLocalizedString("Time zone"), zone);
    connect(zone, &ZoneButton::zoneChosen, this, [this](const std::optional<CXTimeZone> &chosen) {
        m_draft.setZone(chosen.value_or(m_surroundings.zone), !chosen);
        showOccurrences();
    });
}

QLayout *SchedulePicker::makeButtons()
{
    auto *row = new QHBoxLayout;
    const auto add = [row](const char *name, const QString &text) {
        auto *button = new QPushButton{text};
        button->setObjectName(QLatin1StringView{name});
        button->setAccessibleName(text);
        button->setAutoDefault(true);
        row->addWidget(button);
        return button;
    };
    if (!m_surroundings.restores.isEmpty())
        connect(add("restoreSchedule", m_surroundings.restores), &QPushButton::clicked, this, [this] {
            Q_EMIT restored();
            close();
        });
    row->addStretch(1);
    connect(add("cancelSchedule", KWLocalizedString("Cancel")), &QPushButton::clicked, this, &QWidget::close);
    QPushButton *save = add("keepSchedule", KWLocalizedString("Save"));
    save->setDefault(true);
    connect(save, &QPushButton::clicked, this, &SchedulePicker::keep);
    return row;
}

void SchedulePicker::connectDays()
{
    const auto setDay = [this](Day day) {
        if (!m_draft.day()) m_draft.reminders = usualReminders(true);
        m_draft.setDay(day);
        m_repeat->setDay(day);
        showDraft();
    };
    connect(m_days, &DayChooser::daySelected, this, setDay);
    connect(m_days, &DayChooser::dayClicked, this, setDay);
    connect(m_days, &DayChooser::dayActivated, this, [this, setDay](Day day) {
        setDay(day);
        keep();
    });
    connect(m_days, &DayChooser::choiceMade, this, [this, setDay](std::optional<Day> day) {
        if (day) {
            m_days->select(*day);
            setDay(*day);
        } else {
            m_draft.clear();
        }
        keep();
    });
}

const std::set<CXAlarmTrigger> &SchedulePicker::usualReminders(bool isAllDay) const
{
    return isAllDay ? m_surroundings.allDayReminders : m_surroundings.reminders;
}

void SchedulePicker::needDay()
{
    if (!m_draft.day()) m_draft.setDay(m_days->selectedDay());
}

void SchedulePicker::setTime(std::optional<std::chrono::minutes> time)
{
    needDay();
    m_draft.setTime(time, usualReminders(!time));
    showDraft();
}

void SchedulePicker::showDraft()
{
    const QSignalBlocker noDays{m_daysLater};
    const bool hasTime = m_draft.time().has_value();
    m_start->setTime(m_draft.time());
    m_end->setTime(m_draft.endTime());
    m_end->setVisible(hasTime && !m_surroundings.asksDayAndTimeAlone);
    m_end->setFirstStep(m_draft.time().value_or(std::chrono::hours{9}) + std::chrono::hours{1});
    // Days that it takes, or by how many the end is behind the start.
    m_daysLater->setMinimum(hasTime ? 0 : 1);
    m_daysLater->setValue(hasTime ? m_draft.daysLater() : m_draft.daysLater() + 1);
    const bool isOne = m_daysLater->value() == 1;
    if (hasTime)
        m_daysLater->setSuffix(isOne ? KWLocalizedString(" day later") : KWLocalizedString(" days later"));
    else
        m_daysLater->setSuffix(isOne ? KWLocalizedString(" day") : KWLocalizedString(" days"));
    m_daysLater->setEnabled(!hasTime || m_draft.endTime());
    m_daysLater->setAccessibleName(hasTime ? KWLocalizedString("Days later")
                                           : KWLocalizedString("Days it takes"));
    m_reminders->setReminders(m_draft.reminders, !hasTime);
    showOccurrences();
}

void SchedulePicker::showOccurrences()
{
    QString words = m_repeat->problem();
    if (words.isEmpty()) {
        const std::chrono::weekday first{unsigned(m_surroundings.firstWeekday - 1)};
        QStringList days;
        for (const Instant each : m_draft.occurrences(shownOccurrences, first))
            days.append(
                DateWording::weekdayAndDay(m_draft.zone().dayOf(each), m_surroundings.today, QLocale{})
                    .replace(u' ', QChar::Nbsp)); // lines break between dates
        QStringList lines{m_repeat->words(m_draft.zone()), days.join(u" · "_s)};
        lines.removeAll(QString{});
        words = lines.join(u'\n');
    }
    m_occurrences->setText(words);
    m_occurrences->setVisible(!words.isEmpty());
    m_occurrences->setAccessibleName(words);
}

QString SchedulePicker::problem() const
{
    if (!m_start->isReadable() || !m_end->isReadable())
        return KWLocalizedString("This is no time of day. Type one such as “9:30”.");
    if (!m_reminders->isReadable())
        return KWLocalizedString("This is no reminder. Type one such as “20 min” or “3 days”.");
    if (const QString sentence = m_repeat->problem(); !sentence.isEmpty()) return sentence;
    const Result<void> fits = m_draft.schedule().check();
    return fits ? QString{} : fits.error().sentence;
}

void SchedulePicker::keep()
{
    // A field is read when the focus leaves it.
    QWidget *focused = focusWidget();
    if (focused) focused->clearFocus();
    if (const QString sentence = problem(); !sentence.isEmpty()) {
        m_occurrences->setText(sentence);
        m_occurrences->show();
        if (focused) focused->setFocus();
        return;
    }
    const TaskSchedule chosen = m_draft.schedule();
    Q_EMIT kept(chosen);
    close();
}

void SchedulePicker::keyPressEvent(QKeyEvent *event)
{
    if (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter)
        keep();
    else
        PopupFrame::keyPressEvent(event);
}

// A press beside the frame keeps what was chosen; Escape does not.
void SchedulePicker::mousePressEvent(QMouseEvent *event)
{
    if (rect().contains(event->position().toPoint()))
        PopupFrame::mousePressEvent(event);
    else
        keep();
}

void SchedulePicker::popUp(const QPoint &position)
{
    move(position);
    fitContents();
    show();
    m_days->focusMonth();
}

void SchedulePicker::fitContents()
{
    const auto *area = findChild<QScrollArea *>();
    place(pos(), area->widget()->sizeHint() + QSize{2 + area->verticalScrollBar()->sizeHint().width(), 2});
}

bool SchedulePicker::eventFilter(QObject *watched, QEvent *event)
{
    if (event->type() == QEvent::LayoutRequest && isVisible()) fitContents();
    return PopupFrame::eventFilter(watched, event);
}
