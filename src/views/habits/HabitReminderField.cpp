#include "views/habits/HabitReminderField.h"

#include "model/settings/KWLocalizedString.h"
#include "views/controls/FlowLayout.h"
#include "views/controls/TextButton.h"
#include "views/datepicker/TimeField.h"
#include "views/theme/Metrics.h"
#include "views/wording/DateWording.h"

#include <QPushButton>
#include <QTime>
#include <QVBoxLayout>

using namespace Qt::StringLiterals;

namespace {

constexpr int reminderWidth = 110;

QString storedTime(std::chrono::minutes time)
{
    return QTime::fromMSecsSinceStartOfDay(int(std::chrono::milliseconds{time}.count())).toString(u"HH:mm"_s);
}

QString shownTime(const QString &stored, const QLocale &locale)
{
    const QTime time = QTime::fromString(stored, u"HH:mm"_s);
    if (!time.isValid()) return stored;
    return DateWording::timeOfDay(LocalTime{std::chrono::milliseconds{time.msecsSinceStartOfDay()}}, locale);
}

} // namespace

HabitReminderField::HabitReminderField(const QStringList &reminders, QWidget *parent)
    : QWidget(parent), m_reminders(reminders), m_times(new QWidget), m_field(new TimeField)
{
    m_field->setObjectName(u"habitReminderTime"_s);
    m_field->setAccessibleName(KWLocalizedString("Another reminder, such as “8:30”"));
    m_field->setPlaceholderText(KWLocalizedString("Time"));
    m_field->setFixedWidth(Metrics::scaled(reminderWidth));
    auto *add = new QPushButton{KWLocalizedString("Add")};
    add->setObjectName(u"habitAddReminder"_s);
    add->setAccessibleName(KWLocalizedString("Add Reminder"));
    add->setAutoDefault(true);
    auto *times = new FlowLayout{m_times};
    times->setContentsMargins({});
    times->setSpacing(2);
    auto *row = new QHBoxLayout;
    row->setSpacing(Metrics::grid);
    row->addWidget(m_field);
    row->addWidget(add);
    row->addStretch(1);
    auto *column = new QVBoxLayout{this};
    column->setContentsMargins({});
    column->setSpacing(Metrics::grid);
    column->addWidget(m_times);
    column->addLayout(row);
    connect(add, &QAbstractButton::clicked, this, &HabitReminderField::addTyped);
    connect(m_field, &QLineEdit::textEdited, this, &HabitReminderField::typed);
    showTimes();
}

QStringList HabitReminderField::reminders() const
{
    QStringList all = m_reminders;
    if (const auto typed = m_field->time()) all.append(storedTime(*typed));
    all.removeDuplicates();
    all.sort();
    return all;
}

bool HabitReminderField::isReadable() const { return m_field->isReadable(); }

void HabitReminderField::focusField() { m_field->setFocus(Qt::OtherFocusReason); }

void HabitReminderField::addTyped()
{
    if (!m_field->isReadable()) Q_EMIT refused();
    if (!m_field->isReadable() || !m_field->time()) return focusField();
    m_reminders = reminders();
    m_field->setTime(std::nullopt);
    showTimes();
    focusField();
}

void HabitReminderField::showTimes()
{
    qDeleteAll(m_times->findChildren<TextButton *>(QString{}, Qt::FindDirectChildrenOnly));
    for (const QString &each : std::as_const(m_reminders)) {
        const QString time = shownTime(each, locale());
        auto *button = new TextButton{time + u"  ×"_s};
        button->setObjectName(u"habitReminder-"_s + each);
        button->setAccessibleName(KWLocalizedString("Remove the reminder at %1").arg(time));
        button->setToolTip(button->accessibleName());
        m_times->layout()->addWidget(button);
        connect(button, &QAbstractButton::clicked, this, [this, each] {
            m_reminders.removeAll(each);
            // The button is still on the stack.
            QMetaObject::invokeMethod(this, &HabitReminderField::showTimes, Qt::QueuedConnection);
        });
    }
    m_times->setVisible(!m_reminders.isEmpty());
    m_times->updateGeometry();
}
