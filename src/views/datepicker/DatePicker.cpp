#include "views/datepicker/DatePicker.h"

#include "model/settings/KWLocalizedString.h"
#include "views/theme/Metrics.h"
#include "views/theme/PopupFrame.h"

#include <QPainter>
#include <QScreen>
#include <QVBoxLayout>

using namespace Qt::StringLiterals;

DatePicker::DatePicker(const Days &days, QWidget *parent)
    : QFrame(parent, Qt::Popup | Qt::FramelessWindowHint), m_days(new DayChooser{days, this})
{
    setObjectName(u"datePicker"_s);
    setAccessibleName(KWLocalizedString("Date"));
    setAttribute(Qt::WA_DeleteOnClose);
    auto *column = new QVBoxLayout{this};
    column->setContentsMargins(Metrics::gap, Metrics::gap, Metrics::gap, Metrics::gap);
    column->addWidget(m_days);
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
    adjustSize();
    const QRect screenBounds = parentWidget()->screen()->availableGeometry();
    move(std::clamp(position.x(), screenBounds.left(),
                    std::max(screenBounds.left(), screenBounds.right() - width())),
         std::clamp(position.y(), screenBounds.top(),
                    std::max(screenBounds.top(), screenBounds.bottom() - height())));
    show();
    m_days->focusMonth();
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
