#include "views/habits/HabitListView.h"

#include "model/settings/KWLocalizedString.h"
#include "views/habits/DayNamesHeader.h"
#include "views/habits/HabitRowDelegate.h"
#include "views/theme/Metrics.h"
#include "views/theme/Painting.h"
#include "views/theme/Theme.h"
#include "views/theme/ThemeConfigurator.h"

#include <QFocusEvent>
#include <QMenu>
#include <QPainter>
#include <QScrollBar>

using namespace Qt::StringLiterals;

namespace {

constexpr int shortestName = 220; // a day gives way before a name is narrower

} // namespace

HabitListView::HabitListView(HabitListModel &model, QWidget *parent)
    : QTreeView(parent), m_model(model), m_delegate(new HabitRowDelegate{model, this})
{
    setObjectName(u"habitList"_s);
    setAccessibleName(KWLocalizedString("Habits"));
    setFrameShape(QFrame::NoFrame);
    setHeader(new DayNamesHeader{HabitListModel::TodayRole, 2, this});
    setVerticalScrollMode(ScrollPerPixel);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setSelectionBehavior(SelectRows);
    setSelectionMode(SingleSelection);
    setEditTriggers(NoEditTriggers);
    setRootIsDecorated(false);
    setIndentation(0);
    setExpandsOnDoubleClick(false);
    setMouseTracking(true);
    setDragEnabled(true);
    setAcceptDrops(true);
    setDropIndicatorShown(false);
    setItemDelegate(m_delegate);
    setModel(&m_model);
    connect(&m_model, &QAbstractItemModel::modelAboutToBeReset, this, &HabitListView::rememberPlace);
    connect(&m_model, &QAbstractItemModel::modelReset, this, &HabitListView::returnToPlace);
    connect(&ThemeConfigurator::shared(), &ThemeConfigurator::themeChanged, this, [this] {
        layOutColumns();
        scheduleDelayedItemsLayout();
    });
}

void HabitListView::setFoldedSections(const QStringList &sectionIDs)
{
    m_folded = {sectionIDs.begin(), sectionIDs.end()};
    layOutSections();
}

void HabitListView::layOutSections()
{
    for (int row = 0; row < m_model.rowCount(); ++row) {
        setFirstColumnSpanned(row, {}, true);
        setExpanded(m_model.index(row, 0), !m_folded.contains(m_model.sections().at(row).sectionID));
    }
}

void HabitListView::layOutColumns()
{
    const int day = HabitRowDelegate::dayWidth();
    const int room = viewport()->width() - Metrics::rowOutset;
    const int days = std::clamp((room - Metrics::scaled(shortestName)) / day, 1, HabitListModel::days);
    for (int column = 1; column < HabitListModel::columns; ++column) {
        setColumnHidden(column, column <= HabitListModel::days - days);
        header()->resizeSection(column, day);
    }
    header()->resizeSection(0, std::max(1, room - days * day));
    if (currentIndex().isValid() && isColumnHidden(currentIndex().column()))
        setCurrentIndex(currentIndex().siblingAtColumn(HabitListModel::todayColumn));
}

void HabitListView::resizeEvent(QResizeEvent *event)
{
    QTreeView::resizeEvent(event);
    layOutColumns();
}

void HabitListView::rememberPlace()
{
    const QModelIndex current = currentIndex();
    m_place = {.habitID = currentHabit(),
               .sectionID = current.isValid() ? m_model.sectionAt(current).sectionID : QString{},
               .column = m_column,
               .scroll = verticalScrollBar()->value()};
    m_isResetting = true;
}

// A habit that went, or that was folded away, leaves its section current.
void HabitListView::returnToPlace()
{
    layOutColumns();
    layOutSections();
    QModelIndex current = m_model.indexOf(m_place.habitID, m_place.column);
    const bool isFolded = current.isValid() && !isExpanded(current.parent());
    if (!current.isValid() || isFolded) current = m_model.indexOfSection(m_place.sectionID);
    if (current.isValid()) setCurrentIndex(current);
    executeDelayedItemsLayout();
    verticalScrollBar()->setValue(m_place.scroll);
    m_isResetting = false;
    m_drop.reset();
    if (currentHabit() != m_place.habitID) Q_EMIT currentHabitChanged(currentHabit());
}

QString HabitListView::currentHabit() const
{
    const HabitRow *row = m_model.rowAt(currentIndex());
    return row ? row->habit.sid : QString{};
}

void HabitListView::selectHabit(const QString &habitID)
{
    const QModelIndex found = m_model.indexOf(habitID, m_column);
    if (!found.isValid()) return;
    if (!isExpanded(found.parent())) toggleFold(found.parent());
    setCurrentIndex(found);
    scrollTo(found);
}

QModelIndex HabitListView::firstHabit() const
{
    for (QModelIndex each = m_model.index(0, 0); each.isValid(); each = indexBelow(each))
        if (m_model.rowAt(each)) return each;
    return m_model.index(0, 0);
}

void HabitListView::takeKeyboard()
{
    setFocus(Qt::OtherFocusReason);
    if (!currentIndex().isValid()) setCurrentIndex(firstHabit());
}

void HabitListView::focusInEvent(QFocusEvent *event)
{
    if (event->reason() != Qt::MouseFocusReason && !currentIndex().isValid()) setCurrentIndex(firstHabit());
    QTreeView::focusInEvent(event);
}

void HabitListView::currentChanged(const QModelIndex &current, const QModelIndex &previous)
{
    QTreeView::currentChanged(current, previous);
    viewport()->update(); // rows are painted wider than their cells
    if (m_model.rowAt(current)) m_column = current.column();
    if (!m_isResetting && m_model.rowAt(current) != m_model.rowAt(previous))
        Q_EMIT currentHabitChanged(currentHabit());
}

QRect HabitListView::rowRect(const QModelIndex &index) const
{
    QRect row = visualRect(index);
    row.setLeft(0);
    row.setRight(viewport()->width() - 1);
    return row;
}

QRect HabitListView::placeOf(const QModelIndex &index) const
{
    const bool isName = m_model.rowAt(index) && !m_model.dayAt(index);
    const QModelIndex shown = isName ? index.siblingAtColumn(HabitListModel::todayColumn) : index;
    const QRect cell = visualRect(shown);
    const QRect place = m_model.dayAt(shown) ? HabitRowDelegate::circleIn(cell) : cell;
    return {viewport()->mapToGlobal(place.topLeft()), place.size()};
}

void HabitListView::drawRow(QPainter *painter, const QStyleOptionViewItem &options,
                            const QModelIndex &index) const
{
    const Theme &theme = Theme::current();
    const bool isHabit = m_model.rowAt(index);
    const QRect row{0, options.rect.top(), viewport()->width(), options.rect.height()};
    const bool isSelected = isHabit && selectionModel()->isRowSelected(index.row(), index.parent());
    const QModelIndex name = index.siblingAtColumn(0);
    if (isSelected)
        Painting::roundedBox(*painter, row, Metrics::rowRadius, theme.selection);
    else if (isHabit && name == m_hovered)
        Painting::roundedBox(*painter, row.adjusted(0, 0, 0, -1), Metrics::rowRadius, theme.hover);
    if (isHabit && !isSelected)
        painter->fillRect(row.left() + Metrics::rowOutset, row.bottom(), row.width() - 2 * Metrics::rowOutset,
                          1, theme.hairline);
    QTreeView::drawRow(painter, options, index);
    const bool hasRing = isHabit && hasFocus() && currentIndex() == name &&
                         window()->testAttribute(Qt::WA_KeyboardFocusChange);
    if (hasRing) Painting::focusRing(*painter, row, Metrics::rowRadius);
}

void HabitListView::paintEvent(QPaintEvent *event)
{
    QTreeView::paintEvent(event);
    if (!m_drop) return;
    QPainter painter{viewport()};
    painter.fillRect(Metrics::rowOutset, m_drop->second - 1, viewport()->width() - 2 * Metrics::rowOutset, 2,
                     Theme::current().accent);
}

void HabitListView::openMenu(const QModelIndex &index, const QPoint &globalPosition)
{
    auto *menu = new QMenu{this};
    menu->setObjectName(u"habitMenu"_s);
    menu->setAttribute(Qt::WA_DeleteOnClose);
    if (const HabitRow *row = m_model.rowAt(index))
        Q_EMIT habitMenuAboutToShow(*menu, *row, dayNear(index), placeOf(index));
    else
        Q_EMIT sectionMenuAboutToShow(*menu, m_model.sectionAt(index), placeOf(index));
    if (menu->isEmpty()) return menu->deleteLater(); // of the archive
    menu->popup(globalPosition);
}
