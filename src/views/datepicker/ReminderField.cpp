#include "views/datepicker/ReminderField.h"

#include "capture/ReminderPhrase.h"
#include "model/settings/KWLocalizedString.h"
#include "views/controls/TextButton.h"
#include "views/wording/ReminderWording.h"

#include <QHBoxLayout>
#include <QLineEdit>
#include <QMenu>

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

namespace {

std::set<CXAlarmTrigger> usualReminders(bool isAllDay)
{
    using enum CXAlarmTrigger::Unit;
    const auto before = [](CXAlarmTrigger::Unit unit, int value) {
        return CXAlarmTrigger::triggerWithUnit(unit, value);
    };
    const auto daysBefore = [](int value) { return CXAlarmTrigger::triggerWithUnit(Days, value, 9h); };
    if (isAllDay) return {CXAlarmTrigger::onTime_AllDay(), daysBefore(1), daysBefore(2), daysBefore(7)};
    return {CXAlarmTrigger::onTime(), before(Minutes, 5), before(Minutes, 30), before(Hours, 1),
            before(Days, 1)};
}

} // namespace

ReminderField::ReminderField(QWidget *parent)
    : QWidget(parent)
    , m_button(new TextButton{{}, TextButton::Opens::Menu, this})
    , m_other(new QLineEdit{this})
{
    m_button->setObjectName(u"reminderMenu"_s);
    m_other->setObjectName(u"otherReminder"_s);
    m_other->setPlaceholderText(KWLocalizedString("20 min"));
    m_other->setAccessibleName(KWLocalizedString("Another reminder, such as “20 min”"));
    auto *row = new QHBoxLayout{this};
    row->setContentsMargins({});
    row->addWidget(m_button);
    row->addWidget(m_other, 1);
    connect(m_button, &QAbstractButton::clicked, this, &ReminderField::openMenu);
    connect(m_other, &QLineEdit::editingFinished, this, &ReminderField::readTyped);
}

void ReminderField::setReminders(const std::set<CXAlarmTrigger> &reminders, bool isAllDay)
{
    m_reminders = reminders;
    m_isAllDay = isAllDay;
    m_button->setText(ReminderWording::triggers(reminders));
    m_button->setAccessibleName(KWLocalizedString("Reminders: %1").arg(m_button->text()));
    m_button->updateGeometry();
}

bool ReminderField::isReadable() const
{
    return m_other->text().trimmed().isEmpty() || !remindersIn(m_other->text(), m_isAllDay).empty();
}

void ReminderField::openMenu()
{
    auto *menu = new QMenu{this};
    menu->setAttribute(Qt::WA_DeleteOnClose);
    std::set<CXAlarmTrigger> offered = usualReminders(m_isAllDay);
    offered.insert(m_reminders.begin(), m_reminders.end());
    for (const CXAlarmTrigger &each : offered) {
        QAction *action = menu->addAction(ReminderWording::trigger(each));
        action->setCheckable(true);
        action->setChecked(m_reminders.contains(each));
        connect(action, &QAction::toggled, this, [this, each](bool isOn) {
            std::set<CXAlarmTrigger> reminders = m_reminders;
            isOn ? void(reminders.insert(each)) : void(reminders.erase(each));
            change(reminders);
        });
    }
    menu->popup(m_button->mapToGlobal(QPoint{0, m_button->height()}));
}

void ReminderField::readTyped()
{
    std::set<CXAlarmTrigger> reminders = remindersIn(m_other->text(), m_isAllDay);
    if (reminders.empty()) return;
    m_other->clear();
    reminders.insert(m_reminders.begin(), m_reminders.end());
    change(reminders);
}

void ReminderField::change(const std::set<CXAlarmTrigger> &reminders)
{
    setReminders(reminders, m_isAllDay);
    Q_EMIT remindersChanged(reminders);
}
