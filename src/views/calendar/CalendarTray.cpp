#include "views/calendar/CalendarTray.h"

#include "model/settings/KWLocalizedString.h"
#include "views/controls/PlainLabel.h"
#include "views/tasklist/TaskListView.h"
#include "views/theme/Metrics.h"
#include "views/theme/Theme.h"

#include <QLabel>
#include <QPainter>
#include <QStyle>
#include <QVBoxLayout>

namespace {

constexpr int trayWidth = 240;
constexpr int trayHeight = 168; // below the page

} // namespace

CalendarTray::CalendarTray(CXClock &clock, QWidget *parent)
    : QWidget(parent), m_model(clock), m_list(new TaskListView{m_model})
{
    setObjectName(QStringLiteral("calendarTray"));
    setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Preferred);
    m_list->setObjectName(QStringLiteral("calendarTrayList"));
    m_list->setAccessibleName(KWLocalizedString("Tasks Without a Date"));
    m_list->setEmptyText(KWLocalizedString("Every task has a date"),
                         KWLocalizedString("Tasks without one stand here, to be dragged onto a day."));
    auto *column = new QVBoxLayout{this};
    column->setContentsMargins(Metrics::gap, 0, Metrics::grid, 0);
    column->setSpacing(Metrics::grid);
    auto *title = makePlainLabel(KWLocalizedString("Without a Date"), Fonts::Role::BodyStrong);
    column->addWidget(title);
    column->addWidget(m_list, 1);
    setFocusProxy(m_list);
}

void CalendarTray::setTasks(const QList<KWTaskListItemModel> &tasks)
{
    QList<TaskListRow> rows;
    for (const KWTaskListItemModel &each : tasks)
        rows.append({.kind = TaskListRow::Kind::Task, .id = each.sid, .task = each});
    m_list->setRows(rows);
}

void CalendarTray::setPlace(Place place)
{
    if (std::exchange(m_place, place) == place) return;
    const bool isBeside = place == Place::Beside;
    setSizePolicy(isBeside ? QSizePolicy::Fixed : QSizePolicy::Preferred,
                  isBeside ? QSizePolicy::Preferred : QSizePolicy::Fixed);
    layout()->setContentsMargins(Metrics::gap, isBeside ? 0 : Metrics::gap, Metrics::grid, 0);
    updateGeometry();
    update();
}

QSize CalendarTray::sizeHint() const { return {Metrics::scaled(trayWidth), Metrics::scaled(trayHeight)}; }

void CalendarTray::paintEvent(QPaintEvent *)
{
    QPainter painter{this};
    const QRect line = m_place == Place::Beside ? QRect{0, 0, 1, height()}
                                                : QRect{Metrics::gap, 0, width() - Metrics::gap, 1};
    painter.fillRect(QStyle::visualRect(layoutDirection(), rect(), line), Theme::current().hairline);
}

void CalendarTray::showEvent(QShowEvent *event)
{
    QWidget::showEvent(event);
    Q_EMIT visibilityChanged();
}

void CalendarTray::hideEvent(QHideEvent *event)
{
    QWidget::hideEvent(event);
    Q_EMIT visibilityChanged();
}
