#include "views/theme/Icons.h"

#include <QFile>
#include <QHash>
#include <QPaintDevice>
#include <QPainter>
#include <QSvgRenderer>

#include <array>
#include <cmath>

using namespace Qt::StringLiterals;

// A resource of a static library is registered by name, outside every namespace.
static void registerIcons() { Q_INIT_RESOURCE(icons); }

namespace {

constexpr std::array<const char *, 54> fileNames{
    "inbox",        "today",         "tomorrow",     "next7days",  "all",        "assigned",
    "folder",       "archive",       "tag",          "filter",     "completed",  "abandoned",
    "trash",        "summary",       "add",          "repeat",     "flag",       "check",
    "chevron-down", "chevron-right", "enter",        "close",      "restore",    "menu",
    "more",         "pin",           "attachment",   "focus",      "note",       "shared",
    "help",         "calendar",      "tray",         "habits",     "habit-star", "habit-sun",
    "habit-moon",   "habit-pencil",  "habit-waves",  "habit-drop", "habit-cup",  "habit-apple",
    "habit-book",   "habit-music",   "habit-weight", "habit-shoe", "habit-leaf", "habit-bed",
    "habit-home",   "habit-chat",    "habit-coin",   "minus",      "settings",   "small-window",
};
static_assert(fileNames.size() == std::size_t(Icon::SmallWindow) + 1);

quint64 keyOf(Icon icon, int side, const QColor &color)
{
    return quint64(icon) << 56 | quint64(side & 0xffffff) << 32 | color.rgba();
}

QImage rendered(const QString &name, int side)
{
    static const bool registered = (registerIcons(), true);
    Q_UNUSED(registered)
    QSvgRenderer renderer{u":/orvane/icons/"_s + name + u".svg"_s};
    Q_ASSERT(renderer.isValid());
    QImage image{side, side, QImage::Format_ARGB32_Premultiplied};
    image.fill(Qt::transparent);
    QPainter painter{&image};
    renderer.render(&painter, QRectF{0, 0, double(side), double(side)});
    return image;
}

} // namespace

QPixmap Icons::pixmap(Icon icon, int size, const QColor &color, double devicePixelRatio)
{
    static QHash<quint64, QPixmap> kept;
    const int side = int(std::lround(size * devicePixelRatio));
    QPixmap &pixmap = kept[keyOf(icon, side, color)];
    if (pixmap.isNull()) {
        QImage image = rendered(QString::fromLatin1(fileNames[std::size_t(icon)]), side);
        QPainter painter{&image};
        painter.setCompositionMode(QPainter::CompositionMode_SourceIn);
        painter.fillRect(image.rect(), color);
        painter.end();
        pixmap = QPixmap::fromImage(std::move(image));
    }
    pixmap.setDevicePixelRatio(devicePixelRatio);
    return pixmap;
}

void Icons::paint(QPainter &painter, const QRect &bounds, Icon icon, int size, const QColor &color)
{
    const QPixmap picture = pixmap(icon, size, color, painter.device()->devicePixelRatioF());
    painter.drawPixmap(
        QPointF{bounds.left() + (bounds.width() - size) / 2.0, bounds.top() + (bounds.height() - size) / 2.0},
        picture);
}

QPixmap Icons::application(int size, double devicePixelRatio)
{
    const int side = int(std::lround(size * devicePixelRatio));
    QPixmap pixmap = QPixmap::fromImage(rendered(u"orvane"_s, side));
    pixmap.setDevicePixelRatio(devicePixelRatio);
    return pixmap;
}

QIcon Icons::applicationIcon()
{
    QIcon icon;
    for (const int side : {16, 22, 24, 32, 48, 64})
        icon.addPixmap(application(side, 1));
    return icon;
}
