#include "views/calendar/CalendarAccessible.h"

#include "views/calendar/CalendarView.h"
#include "views/calendar/CalendarWording.h"
#include "views/wording/DateWording.h"

#include <QAccessibleWidget>

using namespace Qt::StringLiterals;

namespace {

class ItemInterface : public QAccessibleInterface {
public:
    ItemInterface(CalendarView &view, int index) : m_view(view), m_index(index) {}

    bool isValid() const override { return m_index < int(m_view.content().items.size()); }
    QObject *object() const override { return nullptr; }
    QAccessibleInterface *childAt(int, int) const override { return nullptr; }
    QAccessibleInterface *parent() const override { return QAccessible::queryAccessibleInterface(&m_view); }
    QAccessibleInterface *child(int) const override { return nullptr; }
    int childCount() const override { return 0; }
    int indexOfChild(const QAccessibleInterface *) const override { return -1; }
    QAccessible::Role role() const override { return QAccessible::ListItem; }
    void setText(QAccessible::Text, const QString &) override {}

    QString text(QAccessible::Text text) const override
    {
        if (text != QAccessible::Name || !isValid()) return {};
        return CalendarWording::spoken(m_view.content().items[std::size_t(m_index)], m_view.locale());
    }

    QRect rect() const override
    {
        if (!isValid()) return {};
        const QRect bounds = m_view.boundsOf(std::size_t(m_index));
        return {m_view.viewport()->mapToGlobal(bounds.topLeft()), bounds.size()};
    }

    QAccessible::State state() const override
    {
        QAccessible::State state;
        state.selectable = state.focusable = true;
        state.invisible = !m_view.isVisible();
        state.offscreen = isValid() && m_view.boundsOf(std::size_t(m_index)).isEmpty();
        state.selected = m_view.selected() == std::size_t(m_index);
        state.focused = state.selected && m_view.hasFocus();
        return state;
    }

private:
    CalendarView &m_view;
    const int m_index;
};

class ViewInterface : public QAccessibleWidget {
public:
    explicit ViewInterface(CalendarView &view) : QAccessibleWidget(&view, QAccessible::List), m_view(view) {}
    ~ViewInterface() override { forgetItems(); }

    void forgetItems()
    {
        for (const QAccessible::Id each : std::exchange(m_items, {}))
            QAccessible::deleteAccessibleInterface(each);
    }

    int childCount() const override { return int(m_view.content().items.size()); }
    QAccessibleInterface *child(int index) const override
    {
        if (index < 0 || index >= childCount()) return nullptr;
        if (const auto known = m_items.constFind(index); known != m_items.constEnd())
            return QAccessible::accessibleInterface(*known);
        auto *item = new ItemInterface{m_view, index};
        m_items.insert(index, QAccessible::registerAccessibleInterface(item));
        return item;
    }
    int indexOfChild(const QAccessibleInterface *child) const override
    {
        return m_items.key(QAccessible::uniqueId(const_cast<QAccessibleInterface *>(child)), -1);
    }
    QAccessibleInterface *focusChild() const override
    {
        return m_view.hasFocus() && m_view.selected() ? child(int(*m_view.selected())) : nullptr;
    }
    QAccessibleInterface *childAt(int x, int y) const override
    {
        const QPoint point = m_view.viewport()->mapFromGlobal(QPoint{x, y});
        for (int index = 0; index < childCount(); ++index)
            if (m_view.boundsOf(std::size_t(index)).contains(point)) return child(index);
        return nullptr;
    }

    QString text(QAccessible::Text text) const override
    {
        if (text != QAccessible::Value) return QAccessibleWidget::text(text);
        const CalendarSpot &spot = m_view.spot();
        const QString day = DateWording::fullDay(spot.day, m_view.locale());
        return spot.time ? day + u", "_s + DateWording::timeOfDay(spot.at(), m_view.locale()) : day;
    }

private:
    CalendarView &m_view;
    mutable QHash<int, QAccessible::Id> m_items; // those that were asked for
};

QAccessibleInterface *makeInterface(const QString &, QObject *object)
{
    auto *view = qobject_cast<CalendarView *>(object);
    return view ? new ViewInterface{*view} : nullptr;
}

} // namespace

void CalendarAccessible::install()
{
    static const bool isInstalled = (QAccessible::installFactory(makeInterface), true);
    Q_UNUSED(isInstalled)
}

void CalendarAccessible::tellCurrent(CalendarView &view)
{
    if (!QAccessible::isActive()) return;
    if (const auto selected = view.selected()) {
        QAccessibleEvent event{&view, QAccessible::Focus};
        event.setChild(int(*selected));
        QAccessible::updateAccessibility(&event);
    } else if (QAccessibleInterface *interface = QAccessible::queryAccessibleInterface(&view)) {
        QAccessibleValueChangeEvent event{&view, interface->text(QAccessible::Value)};
        QAccessible::updateAccessibility(&event);
    }
}

void CalendarAccessible::forgetItems(CalendarView &view)
{
    if (!QAccessible::isActive()) return;
    if (auto *found = dynamic_cast<ViewInterface *>(QAccessible::queryAccessibleInterface(&view)))
        found->forgetItems();
}
