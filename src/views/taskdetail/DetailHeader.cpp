#include "views/taskdetail/DetailHeader.h"

#include "model/settings/KWLocalizedString.h"
#include "views/controls/CheckBox.h"
#include "views/tasklist/TaskDateColor.h"
#include "views/theme/Fonts.h"
#include "views/theme/Icons.h"
#include "views/theme/Metrics.h"
#include "views/theme/Theme.h"

#include <QPainter>
#include <QStyle>

using namespace Qt::StringLiterals;

namespace {

constexpr int detailHeaderHeight = 46;

} // namespace

DetailHeader::DetailHeader(CXClock &clock, QWidget *parent)
    : QWidget(parent), m_clock(clock), m_checkBox(new CheckBox{this})
{
    setObjectName(u"detailHeader"_s);
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
    m_checkBox->setObjectName(u"detailCheckbox"_s);
    m_checkBox->setAccessibleName(KWLocalizedString("Completed"));
    connect(m_checkBox, &QAbstractButton::clicked, this, &DetailHeader::completionToggled);
}

void DetailHeader::setTask(const KWTaskModel &task)
{
    m_task = task;
    m_checkBox->setStatus(task.status);
    m_checkBox->setPriority(task.priority);
    refreshDate();
}

void DetailHeader::refreshDate()
{
    const bool isClosed = m_task.status != KWTaskStatusOpen;
    m_date = detailDateText({m_task.startDate, m_task.endDate, m_task.isAllDay, isClosed}, m_clock.now(),
                            m_clock.zone(), QLocale{});
    setAccessibleName(m_date.text.isEmpty() ? KWLocalizedString("No date") : m_date.text);
    update();
}

QSize DetailHeader::sizeHint() const { return {Metrics::scaled(200), Metrics::scaled(detailHeaderHeight)}; }

void DetailHeader::resizeEvent(QResizeEvent *event)
{
    QWidget::resizeEvent(event);
    const QSize size = m_checkBox->sizeHint();
    const int outset = (size.width() - Metrics::scaled(Metrics::checkbox)) / 2;
    const QRect bounds{-outset + Metrics::sideMargin, (height() - size.height()) / 2, size.width(),
                       size.height()};
    m_checkBox->setGeometry(QStyle::visualRect(layoutDirection(), rect(), bounds));
}

void DetailHeader::paintEvent(QPaintEvent *)
{
    const Theme &theme = Theme::current();
    QPainter painter{this};
    const auto visual = [this](const QRect &bounds) {
        return QStyle::visualRect(layoutDirection(), rect(), bounds);
    };
    const int right = width() - Metrics::sideMargin;
    const int icon = Metrics::scaled(Metrics::icon) - 2;
    painter.fillRect(QRect{Metrics::sideMargin, height() - 1, right - Metrics::sideMargin, 1},
                     theme.hairline);

    const int textLeft = Metrics::sideMargin + Metrics::scaled(Metrics::titleIndent);
    int textRight = right - icon - Metrics::gap;
    if (m_task.priority != KWTaskPriorityNone)
        Icons::paint(painter, visual({right - icon, 0, icon, height()}), Icon::Flag, icon,
                     theme.priority(m_task.priority).mark);
    if (!m_task.repeatRule.isEmpty()) textRight -= icon + Metrics::gap;

    const QString text = m_date.text.isEmpty() ? KWLocalizedString("No date") : m_date.text;
    painter.setPen(m_date.text.isEmpty() ? theme.faintText : taskDateColor(m_date.tone, theme.secondaryText));
    const int textWidth = std::min(textRight - textLeft, Fonts::width(Fonts::Role::Secondary, text));
    const auto leading = layoutDirection() == Qt::RightToLeft ? Qt::AlignRight : Qt::AlignLeft;
    Fonts::drawLine(painter, Fonts::Role::Secondary, visual({textLeft, 0, textWidth, height()}), leading,
                    text);
    if (!m_task.repeatRule.isEmpty())
        Icons::paint(painter, visual({textLeft + textWidth + Metrics::gap - 2, 0, icon, height()}),
                     Icon::Repeat, icon, theme.faintText);
}
