#pragma once

#include "views/tasklist/RowPart.h"
#include "views/tasklist/SectionLook.h"

#include <QRect>
#include <QString>

class QPainter;
struct TaskListRow;

/// The header of a section, 32 pixels high at a text size of 100 %: a triangle, an icon, the title, the
/// count, and at the other end buttons to put the tasks off, to add one, and for more. Adding and more show
/// where the pointer or the keyboard is. Painted, not a widget: lists have many of them.
class KWTaskListSectionCell {
public:
    struct State {
        bool isHovered = false;
        bool hasKeyboardFocus = false;
        RowPart hoveredPart = RowPart::None;
    };

    /// `row` and `look` outlive the cell. `bounds` is the whole row.
    KWTaskListSectionCell(const TaskListRow &row, const SectionLook &look, const QRect &bounds,
                          Qt::LayoutDirection direction);

    bool isExpand() const;
    /// The header itself where there is no button.
    RowPart partAt(const QPoint &position) const;
    void paint(QPainter &painter, const State &state) const;

private:
    void paintTitle(QPainter &painter) const;
    void paintButton(QPainter &painter, const QRect &bounds, Icon icon, bool isHovered) const;
    QRect visual(const QRect &logical) const;

    const TaskListRow &m_row;
    const SectionLook &m_look;
    QRect m_bounds;
    Qt::LayoutDirection m_direction;
    QRect m_more;
    QRect m_add;      // empty where nothing can be added
    QRect m_postpone; // empty where nothing can be put off
    QRect m_title;    // all that the buttons leave
};
