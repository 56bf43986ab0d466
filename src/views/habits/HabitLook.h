#pragma once

#include "views/theme/Icons.h"

#include <QColor>
#include <QString>

#include <array>

class QPainter;
struct KWHabitModel;

/// The pictures and colours of habits, as lists, details and editors paint them.
namespace HabitLook {

/// A picture that can be chosen: what is stored, and the key of its name.
struct Picture {
    const char *name;
    const char *title;
    Icon icon;
};
inline constexpr std::array<Picture, 18> pictures{{
    {"star", "Star", Icon::HabitStar},
    {"sun", "Sun", Icon::HabitSun},
    {"moon", "Moon", Icon::HabitMoon},
    {"pencil", "Pencil", Icon::HabitPencil},
    {"book", "Book", Icon::HabitBook},
    {"music", "Music", Icon::HabitMusic},
    {"waves", "Waves", Icon::HabitWaves},
    {"drop", "Drop", Icon::HabitDrop},
    {"cup", "Cup", Icon::HabitCup},
    {"apple", "Apple", Icon::HabitApple},
    {"weight", "Weights", Icon::HabitWeight},
    {"shoe", "Shoe", Icon::HabitShoe},
    {"leaf", "Leaf", Icon::HabitLeaf},
    {"bed", "Bed", Icon::HabitBed},
    {"home", "House", Icon::HabitHome},
    {"chat", "Speech", Icon::HabitChat},
    {"coin", "Coin", Icon::HabitCoin},
    {"heart", "Heart", Icon::Habits},
}};

/// Of the stored name; a star for one that is none of these.
Icon icon(const QString &iconRes);
/// Of "#rrggbb"; the accent for an empty or unreadable one.
QColor color(const QString &stored);

/// The picture on a soft rounded square.
void paintTile(QPainter &painter, const QRect &bounds, const KWHabitModel &habit);

} // namespace HabitLook
