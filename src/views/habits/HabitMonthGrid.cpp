#include "views/habits/HabitMonthGrid.h"

#include "model/settings/KWLocalizedString.h"
#include "views/controls/FocusMark.h"
#include "views/habits/DayNamesHeader.h"
#include "views/habits/HabitDayMark.h"
#include "views/habits/HabitLook.h"
#include "views/theme/Fonts.h"
#include "views/theme/ItemColors.h"
#include "views/theme/Metrics.h"
#include "views/theme/Painting.h"
#include "views/theme/Theme.h"
#include "views/theme/ThemeConfigurator.h"

#include <QHeaderView>
#include <QKeyEvent>
#include <QPainter>
#include <QStyledItemDelegate>

using namespace Qt::StringLiterals;

namespace {

constexpr int dayRow = 38;
constexpr int dayCircle = 32;
constexpr int fewestRows = 5;

class DayDelegate : public QStyledItemDelegate {
public:
    using QStyledItemDelegate::QStyledItemDelegate;

    void paint(QPainter *painter, const QStyleOptionViewItem &option, const QModelIndex &index) const override
    {
        const auto &model = static_cast<const HabitMonthModel &>(*index.model());
        const HabitDay *day = model.dayAt(index);
        if (!day) return;
        painter->save();
        painter->setRenderHint(QPainter::Antialiasing);
        const QRect circle = circleIn(option.rect);
        const InkedColor colors = InkedColor::of(HabitLook::color(model.habit().color));
        paintMark(*painter, circle, *day, model, colors);
        painter->setFont(
            Fonts::font(day->day == model.today() ? Fonts::Role::BodyStrong : Fonts::Role::Body));
        const bool isDone = day->state == HabitDayState::Done;
        painter->setPen(isDone ? colors.ink : textColor(*day, model.today()));
        painter->drawText(circle, Qt::AlignCenter, index.data().toString());
        if (day->hasNote) paintNoteDot(*painter, circle, isDone ? colors.ink : Theme::current().accentText);
        const bool isFocused =
            (option.state & QStyle::State_HasFocus) && (option.state & QStyle::State_KeyboardFocusChange);
        if (isFocused) Painting::focusRing(*painter, circle.adjusted(-3, -3, 3, 3), circle.width() / 2.0 + 3);
        painter->restore();
    }

    static QRect circleIn(const QRect &cell)
    {
        const int side = std::min({Metrics::scaled(dayCircle), cell.width() - 2, cell.height() - 2});
        QRect circle{0, 0, side, side};
        circle.moveCenter(cell.center());
        return circle;
    }

private:
    static void paintMark(QPainter &painter, const QRect &circle, const HabitDay &day,
                          const HabitMonthModel &model, const InkedColor &colors)
    {
        const QColor color = HabitLook::color(model.habit().color);
        if (day.state == HabitDayState::Done) {
            painter.setPen(Qt::NoPen);
            painter.setBrush(colors.fill);
            painter.drawEllipse(circle);
        } else if (day.state == HabitDayState::Skipped) {
            painter.setPen(Qt::NoPen);
            painter.setBrush(Theme::current().tag);
            painter.drawEllipse(circle);
        } else if (day.value > 0) {
            HabitDayMark::paintProgress(painter, circle, day.progress(), color);
        } else if (day.day == model.today()) {
            HabitDayMark::paintProgress(painter, circle, 1, color);
        }
    }

    static QColor textColor(const HabitDay &day, Day today)
    {
        const Theme &theme = Theme::current();
        if (day.isToCome) return theme.faintText;
        if (day.isMissed(today)) return theme.overdueText;
        return day.isDue ? theme.text : theme.faintText;
    }

    static void paintNoteDot(QPainter &painter, const QRect &circle, const QColor &color)
    {
        painter.setPen(Qt::NoPen);
        painter.setBrush(color);
        painter.drawEllipse(QPointF{circle.center().x() + 0.5, circle.bottom() - 4.0}, 1.5, 1.5);
    }
};

} // namespace

HabitMonthGrid::HabitMonthGrid(QWidget *parent) : QTableView(parent)
{
    setObjectName(u"habitMonth"_s);
    setAccessibleName(KWLocalizedString("Month"));
    setFrameShape(QFrame::NoFrame);
    setShowGrid(false);
    setCornerButtonEnabled(false);
    setTabKeyNavigation(false);
    setSelectionMode(SingleSelection);
    setEditTriggers(NoEditTriggers);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
    viewport()->setAutoFillBackground(false);
    setHorizontalHeader(new DayNamesHeader{HabitMonthModel::TodayRole, 1, this});
    horizontalHeader()->setSectionResizeMode(QHeaderView::Stretch);
    horizontalHeader()->viewport()->setAutoFillBackground(false);
    verticalHeader()->hide();
    verticalHeader()->setMinimumSectionSize(1);
    setItemDelegate(new DayDelegate{this});
    setModel(&m_model);
    connect(&ThemeConfigurator::shared(), &ThemeConfigurator::themeChanged, this, &HabitMonthGrid::layOut);
    layOut();
}

int HabitMonthGrid::narrowest() { return 7 * Metrics::scaled(dayCircle); }

void HabitMonthGrid::setMonth(const HabitDetailContent &content, std::chrono::weekday firstWeekday)
{
    const HabitDay *before = m_model.dayAt(currentIndex());
    const std::optional<Day> current = before ? std::optional{before->day} : std::nullopt;
    m_model.setMonth(content, firstWeekday);
    layOut();
    if (currentIndex().isValid()) return;
    QModelIndex next = current ? m_model.indexOf(*current) : QModelIndex{};
    if (!next.isValid()) next = m_model.indexOf(content.today);
    setCurrentIndex(next.isValid() ? next : m_model.indexOf(content.month));
}

void HabitMonthGrid::layOut()
{
    verticalHeader()->setDefaultSectionSize(Metrics::scaled(dayRow));
    setFixedHeight(sizeHint().height());
    viewport()->update();
}

QSize HabitMonthGrid::sizeHint() const
{
    const int rows = std::max(fewestRows, m_model.rowCount());
    return {7 * Metrics::scaled(dayRow),
            horizontalHeader()->sizeHint().height() + rows * Metrics::scaled(dayRow)};
}

void HabitMonthGrid::resizeEvent(QResizeEvent *event)
{
    QTableView::resizeEvent(event);
    viewport()->update();
}

void HabitMonthGrid::choose(const QModelIndex &index)
{
    const HabitDay *day = m_model.dayAt(index);
    if (!day) return;
    const QRect circle = DayDelegate::circleIn(visualRect(index));
    Q_EMIT dayChosen(day->day, {viewport()->mapToGlobal(circle.topLeft()), circle.size()});
}

void HabitMonthGrid::keyPressEvent(QKeyEvent *event)
{
    FocusMark::keyPressed(*this, *event);
    switch (event->key()) {
    case Qt::Key_PageUp:
        return Q_EMIT monthsTurned(-1);
    case Qt::Key_PageDown:
        return Q_EMIT monthsTurned(1);
    case Qt::Key_Return:
    case Qt::Key_Enter:
    case Qt::Key_Space:
        return choose(currentIndex());
    case Qt::Key_Escape:
        return event->ignore();
    default:
        QTableView::keyPressEvent(event);
    }
}

void HabitMonthGrid::mouseReleaseEvent(QMouseEvent *event)
{
    FocusMark::mousePressed(*this);
    QTableView::mouseReleaseEvent(event);
    const QModelIndex index = indexAt(event->position().toPoint());
    if (event->button() == Qt::LeftButton && index == currentIndex()) choose(index);
}

void HabitMonthGrid::focusInEvent(QFocusEvent *event)
{
    QTableView::focusInEvent(event);
    viewport()->update();
}

// The page around it scrolls.
void HabitMonthGrid::wheelEvent(QWheelEvent *event) { event->ignore(); }
