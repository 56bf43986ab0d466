#include "views/datepicker/DatePicker.h"

#include "model/settings/KWLocalizedString.h"
#include "views/controls/TabOrder.h"
#include "views/theme/Metrics.h"

#include <QVBoxLayout>

using namespace Qt::StringLiterals;

DatePicker::DatePicker(const Days &days, QWidget *parent)
    : PopupFrame(parent), m_days(new DayChooser{days, this})
{
    setObjectName(u"datePicker"_s);
    setAccessibleName(KWLocalizedString("Date"));
    auto *column = new QVBoxLayout{this};
    column->setContentsMargins(Metrics::gap, Metrics::gap, Metrics::gap, Metrics::gap);
    column->addWidget(m_days);
    setTabOrderOf(controlsInOrder(*this));
    for (const auto picks : {&DayChooser::dayActivated, &DayChooser::dayClicked})
        connect(m_days, picks, this, [this](Day day) { pick(day); });
    connect(m_days, &DayChooser::choiceMade, this, &DatePicker::pick);
}

void DatePicker::pick(std::optional<Day> day)
{
    Q_EMIT picked(day);
    close();
}

void DatePicker::popUp(const QPoint &position)
{
    place(position, sizeHint());
    show();
    m_days->focusMonth();
}
