#pragma once

#include "calendar/CalendarPageContent.h"
#include "views/calendar/CalendarEdits.h"
#include "views/calendar/CalendarPlaces.h"
#include "views/calendar/DayColumns.h"
#include "views/calendar/ItemPainter.h"

#include <QAbstractScrollArea>
#include <QPointer>

#include <functional>

class DayPopover;
class TitleField;

/// What the views of a day, a week and a month have in common: the items of a page, which of them or which
/// day is current, and what mouse and keyboard do with them.
///
/// Arrows go from item to item and from day to day, Enter opens, Space completes, Delete deletes, N makes
/// something at the current spot, Page Up and Page Down turn the page. A drag moves an item, its lower edge
/// makes it longer, over empty space it makes one; Escape gives the drag up. Tasks can be dropped. What there
/// is no room for is counted; a press on the number, or Enter or Space on an item in it, tells all of that
/// day.
class CalendarView : public QAbstractScrollArea {
    Q_OBJECT

public:
    struct Look {
        DayColumns::Weekends weekends = DayColumns::Weekends::Shown;
        bool hasWeekNumbers = false;
        std::chrono::weekday firstWeekday = std::chrono::Monday; // of the weeks that are numbered
        KWCalendarColorBy colorBy = KWCalendarColorByProject;

        bool operator==(const Look &) const = default;
    };
    /// `edits` outlives it.
    explicit CalendarView(CalendarEdits &edits, QWidget *parent = nullptr);

    /// What is selected stays so as long as it is there; a drag goes on.
    void setContent(const CalendarPageContent &content);
    const CalendarPageContent &content() const { return m_content; }
    void setLook(const Look &look);

    /// Where something new would be made.
    const CalendarSpot &spot() const { return m_spot; }
    /// Nothing is selected then. Where the day is not shown it is the next one that is.
    void setSpot(const CalendarSpot &spot);
    /// An index among the items of the page.
    std::optional<std::size_t> selected() const { return m_selected; }
    void select(std::size_t item);
    /// Selects what starts there of the task or event as soon as the page has it, but for what is selected
    /// meanwhile.
    void selectOnceThere(const QString &id, LocalTime start);
    const CalendarItem *selectedItem() const;

    const CalendarPlaces &places() const { return m_places; }
    /// Where the item is in the viewport; empty while it is out of sight.
    QRect boundsOf(std::size_t item) const;
    /// Scrolls so that the present time can be seen, where hours are shown.
    virtual void revealNow() {}
    /// Opens the field for a title at the current spot.
    void createHere();

    /// What was dropped stands where it was dropped until a page tells where it is. While somebody is asked
    /// about it that is not before the answer.
    void setDropAsked(bool isAsked);
    bool isDropAsked() const { return m_held && m_held->isAsked; }
    /// It goes back to where the page has it.
    void letGoOfDrop();

Q_SIGNALS:
    /// Another item or none; or the same one, changed.
    void selectionChanged();
    void pagesTurned(int pages);
    /// The keyboard goes to a day that is not on the page.
    void dayLeftFor(Day day);
    /// The day is to be shown alone.
    void dayOpened(Day day);

protected:
    // For the views; places are those from left to right.
    /// Places for this viewport; called when anything they depend on may be another.
    virtual CalendarPlaces layOut() = 0;
    /// Where an item would be painted that is not on the page.
    virtual CalendarPlaces placesOf(const CalendarItem &item) const = 0;
    virtual std::optional<CalendarSpot> spotAt(const QPoint &point) const = 0;
    /// What stands behind the items, and what above.
    virtual void paintBehind(QPainter &painter) const = 0;
    virtual void paintAbove(QPainter &) const {}
    /// What of the viewport such items are painted in.
    virtual QRect areaOf(ItemPlace::Shape) const { return viewport()->rect(); }
    /// Up or Down where there is no further item of the day.
    virtual void stepBeyond(int direction) = 0;
    /// Scrolls so that the spot or item can be seen.
    virtual void reveal() {}
    /// Scrolls while a drag is near an edge.
    virtual void scrollFor(const QPoint &) {}

    const DayColumns &shownDays() const { return m_columns; }
    const Look &look() const { return m_look; }
    void arrange(); ///< lays out and paints anew
    /// Mirrors where the text runs from right to left; the other way round it is the same.
    QRect visual(const QRect &bounds) const;
    QPoint visual(const QPoint &point) const;
    void goToDay(Day day);
    bool isShown(Day day) const; ///< not hidden as one of a weekend; of another page too
    /// The day itself or the next one that is shown, if the page has one, else the last one before.
    Day nearestShown(Day day) const;
    bool isSpotShown() const { return hasFocus() && !m_selected && !m_title; }

    bool viewportEvent(QEvent *event) override;
    void paintEvent(QPaintEvent *event) override;
    void resizeEvent(QResizeEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override;
    void focusInEvent(QFocusEvent *event) override;
    void focusOutEvent(QFocusEvent *event) override;
    void mousePressEvent(QMouseEvent *event) override;
    void mouseMoveEvent(QMouseEvent *event) override;
    void mouseReleaseEvent(QMouseEvent *event) override;
    void mouseDoubleClickEvent(QMouseEvent *event) override;
    void contextMenuEvent(QContextMenuEvent *event) override;
    void dragEnterEvent(QDragEnterEvent *event) override;
    void dragMoveEvent(QDragMoveEvent *event) override;
    void dragLeaveEvent(QDragLeaveEvent *event) override;
    void dropEvent(QDropEvent *event) override;

private:
    struct Drag {
        enum class Kind { Move, Resize, Create };
        Kind kind;
        QPoint pressedAt;
        CalendarSpot from;
        std::optional<CalendarItem> item{};  // that is dragged
        std::optional<CalendarItem> there{}; // once it has begun
    };
    struct Held {
        CalendarItem item;
        CalendarItem there;
        bool isAsked = false;
    };
    struct Awaited {
        QString id; ///< of a task or an event
        LocalTime start;
    };
    std::optional<std::size_t> indexOf(const CalendarItem &item) const;
    std::optional<std::size_t> indexOf(const Awaited &awaited) const;
    std::vector<std::size_t> itemsOn(Day day) const;
    void setSelected(std::optional<std::size_t> item);
    void tellCurrent();
    bool takeKey(const QKeyEvent &key);
    bool takeItemKey(int key);
    void stepDays(int days);
    void stepItems(int direction);
    /// The topmost one below the point, as far as it can be seen.
    const ItemPlace *itemAt(const QPoint &point) const;
    const MorePlace *moreAt(const QPoint &point) const;
    /// That counts the item for want of room: on the current day, if there is one; in the lane before the
    /// hours.
    const MorePlace *counterOf(std::size_t item) const;
    bool isCounted(std::size_t item) const;
    void openMore(const MorePlace &more, std::optional<std::size_t> current);
    void refreshPopover();
    std::vector<CalendarItem> listOf(Day day) const;
    void actOn(const CalendarItem &item, void (CalendarEdits::*request)(const CalendarItem &));
    void carry(const CalendarItem &item, Day day, const QPoint &point);
    void giveDragUp();
    bool isOverLowerEdge(const ItemPlace &place, const QPoint &point) const;
    void drag(const QPoint &point);
    void endDrag();
    void open(const ItemPlace &place);
    void openTitle(const CalendarItem &there);
    QRect titlePlace(const CalendarItem &there) const;
    void showCursor(const QPoint &point);
    void paintItem(QPainter &painter, const ItemPlace &place, const CalendarItem &item, bool isDragged) const;
    /// An item that is not where the page has it.
    void paintAside(QPainter &painter, const CalendarItem &item, ItemPainter::State state) const;
    QString toolTipAt(const QPoint &point) const;

    CalendarEdits &m_edits;
    CalendarPageContent m_content;
    Look m_look;
    DayColumns m_columns;
    CalendarPlaces m_places;
    CalendarSpot m_spot;
    std::optional<std::size_t> m_selected;
    std::optional<Awaited> m_awaited;
    std::optional<Drag> m_drag;
    std::optional<CalendarItem> m_pressedSession; // of focus: a click opens it
    std::optional<Held> m_held;                   // dropped, and not told of yet
    std::optional<CalendarItem> m_dropped;        // where it would be
    std::optional<CalendarItem> m_made;           // while its title is typed
    TitleField *m_title = nullptr;
    QPointer<DayPopover> m_popover;
};
