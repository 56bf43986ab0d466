#pragma once

#include <QColor>
#include <QIcon>
#include <QPixmap>
#include <QRect>

class QPainter;

/// The icon set: line drawings on a grid of 20, tinted when painted. An icon is read at its first use
/// and kept per colour, size and device pixel ratio. Main thread only.
enum class Icon {
    Inbox,
    Today,
    Tomorrow,
    Next7Days,
    All,
    AssignedToMe,
    Folder,
    Archive,
    Tag,
    Filter,
    Completed,
    Abandoned,
    Trash,
    Summary,
    Add,
    Repeat,
    Flag,
    Check,
    ChevronDown,
    ChevronRight,
    Enter,
    Close,
    Restore,
    Menu,
    More,
    Pin,
    Attachment,
    Focus,
    Note,
    Shared,
    Help,
    Calendar,
    Tray,
    Habits,
    HabitStar,
    HabitSun,
    HabitMoon,
    HabitPencil,
    HabitWaves,
    HabitDrop,
    HabitCup,
    HabitApple,
    HabitBook,
    HabitMusic,
    HabitWeight,
    HabitShoe,
    HabitLeaf,
    HabitBed,
    HabitHome,
    HabitChat,
    HabitCoin,
    Minus,
    Settings,
    SmallWindow,
};

namespace Icons {

/// `size` is the side in device-independent pixels.
QPixmap pixmap(Icon icon, int size, const QColor &color, double devicePixelRatio);

/// Paints the icon centred in `bounds`, `size` wide, at the painter's device pixel ratio.
void paint(QPainter &painter, const QRect &bounds, Icon icon, int size, const QColor &color);

/// The product's own picture in its colours.
QPixmap application(int size, double devicePixelRatio);
/// The same for windows and the status area, in their usual sizes.
QIcon applicationIcon();

} // namespace Icons
