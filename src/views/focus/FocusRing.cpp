#include "views/focus/FocusRing.h"

#include "model/settings/KWLocalizedString.h"
#include "views/focus/FocusWording.h"
#include "views/theme/Metrics.h"
#include "views/theme/Theme.h"

#include <QPaintEvent>
#include <QPainter>

#include <algorithm>
#include <cmath>
#include <numbers>

using namespace Qt::StringLiterals;

namespace {

constexpr int largeRing = 286;
constexpr int smallRing = 148;
constexpr double degreesOfTurn = 360;
constexpr double degreesAround = 8; // of the end, painted again with it
constexpr int unitsOfDegree = 16;   // of Qt's arcs

// `from` the top clockwise, in degrees.
void drawArc(QPainter &painter, const QRectF &ring, double from, double to)
{
    painter.drawArc(ring, int(std::lround((90 - from) * unitsOfDegree)),
                    int(std::lround((from - to) * unitsOfDegree)));
}

} // namespace

FocusRing::FocusRing(Size size, QWidget *parent) : QWidget(parent), m_size(size)
{
    setObjectName(u"focusRing"_s);
    setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Maximum);
}

QSize FocusRing::sizeHint() const
{
    const int side = Metrics::scaled(m_size == Size::Large ? largeRing : smallRing);
    return {side, side};
}

QSize FocusRing::minimumSizeHint() const
{
    const int least = Fonts::width(Fonts::Role::SmallClock, u"0:00:00"_s) + 4 * stroke();
    return {least, least};
}

int FocusRing::side() const { return std::min({width(), height(), sizeHint().width()}); }

int FocusRing::stroke() const { return m_size == Size::Large ? 10 : 6; }

QRectF FocusRing::ring() const
{
    const double inner = side() - stroke() - 1;
    QRectF ring{0, 0, inner, inner};
    ring.moveCenter(QRectF{rect()}.center());
    return ring;
}

QString FocusRing::widestTime() const
{
    return m_reading.seconds < 3600 ? u"00:00"_s : m_reading.seconds < 36'000 ? u"0:00:00"_s : u"00:00:00"_s;
}

// Large text in a small window leaves no room for large digits.
Fonts::Role FocusRing::digits() const
{
    const bool fits = Fonts::width(Fonts::Role::Clock, widestTime()) + 5 * stroke() < side();
    return m_size == Size::Large && fits ? Fonts::Role::Clock : Fonts::Role::SmallClock;
}

QRect FocusRing::digitsBounds() const
{
    const int line = QFontMetrics{Fonts::font(digits())}.height();
    const int wide = std::min(side() - 3 * stroke(), Fonts::width(digits(), widestTime()));
    QRect bounds{0, 0, wide, line};
    bounds.moveCenter(rect().center());
    bounds.translate(0, -wordsBounds().height() / 2);
    return bounds;
}

QRect FocusRing::wordsBounds() const
{
    const int line = QFontMetrics{Fonts::font(Fonts::Role::Body)}.height();
    const int digitsLine = QFontMetrics{Fonts::font(digits())}.height();
    QRect bounds{0, 0, side() * 3 / 4, line + Metrics::grid};
    bounds.moveCenter(rect().center());
    bounds.translate(0, digitsLine / 2);
    return bounds;
}

// Large digits in a small ring reach into it.
bool FocusRing::digitsTouchRing() const
{
    const QPointF corner = QRectF{digitsBounds()}.topLeft() - ring().center();
    return std::hypot(corner.x(), corner.y()) > ring().width() / 2 - stroke();
}

double FocusRing::shareOfRing(const FocusReading &reading) const
{
    const double pixels = std::max(1.0, ring().width() * std::numbers::pi);
    return std::ceil(reading.share * pixels) / pixels;
}

QRect FocusRing::endOfRing(double share) const
{
    const double angle = share * 2 * std::numbers::pi;
    const double radius = ring().width() / 2;
    const QPointF end = ring().center() + QPointF{radius * std::sin(angle), -radius * std::cos(angle)};
    QRectF bounds{0, 0, stroke() * 1.5, stroke() * 1.5};
    bounds.moveCenter(end);
    return bounds.toAlignedRect();
}

void FocusRing::setReading(const FocusReading &reading)
{
    if (reading == m_reading) return;
    const FocusReading before = std::exchange(m_reading, reading);
    const bool isTick = std::abs(reading.seconds - before.seconds) == 1 &&
                        reading.seconds / 3600 == before.seconds / 3600 && reading.share > 0 &&
                        before.share > 0 && std::abs(reading.share - before.share) < 0.02;
    if (!isTick) {
        describe();
        return update();
    }
    const double end = shareOfRing(reading), endBefore = shareOfRing(before);
    if (end != endBefore) m_changedEnd |= endOfRing(endBefore) | endOfRing(end);
    const bool hasComeFar = std::max(m_changedEnd.width(), m_changedEnd.height()) > 2 * stroke();
    if (hasComeFar) { // since it was painted last
        m_changedEnd = {};
        update();
    } else {
        update(digitsBounds());
        update(m_changedEnd);
    }
    if (reading.seconds % 60 == 0) describe();
}

void FocusRing::setFace(FocusFace::Phase phase, const QString &words)
{
    if (phase == m_phase && words == m_words) return;
    m_phase = phase;
    m_words = words;
    describe();
    update();
}

void FocusRing::describe()
{
    setAccessibleName(KWLocalizedString("%1, %2").arg(
        FocusWording::spokenLength(std::chrono::seconds{m_reading.seconds}), m_words));
}

QColor FocusRing::color() const
{
    const Theme &theme = Theme::current();
    switch (m_phase) {
    case FocusFace::Phase::Paused:
        return theme.control;
    case FocusFace::Phase::Break:
        return theme.low.mark;
    default:
        return theme.accent;
    }
}

void FocusRing::paintEvent(QPaintEvent *event)
{
    const Theme &theme = Theme::current();
    QPainter painter{this};
    painter.setRenderHint(QPainter::Antialiasing);
    const QRect digitsAt = digitsBounds();
    const bool isTick = event->region().subtracted(QRegion{digitsAt} | m_changedEnd).isEmpty();
    if (!isTick || digitsTouchRing())
        paintRing(painter);
    else if (!m_changedEnd.isEmpty())
        paintRingNear(painter);
    m_changedEnd = {};
    painter.setPen(m_phase == FocusFace::Phase::Paused ? theme.secondaryText : theme.text);
    Fonts::drawLine(painter, digits(), digitsAt, Qt::AlignHCenter, FocusWording::clock(m_reading.seconds));
    if (isTick || m_size == Size::Small) return;
    painter.setPen(theme.secondaryText);
    Fonts::drawLine(painter, Fonts::Role::Body, wordsBounds(), Qt::AlignHCenter, m_words);
}

void FocusRing::paintRing(QPainter &painter) const
{
    painter.setPen(QPen{Theme::current().hover, double(stroke())});
    painter.drawEllipse(ring());
    if (m_reading.share <= 0) return;
    painter.setPen(QPen{color(), double(stroke()), Qt::SolidLine, Qt::RoundCap});
    drawArc(painter, ring(), 0, shareOfRing(m_reading) * degreesOfTurn);
}

// What lies around the end of the ring; the rest is as it was.
void FocusRing::paintRingNear(QPainter &painter) const
{
    const double end = shareOfRing(m_reading) * degreesOfTurn;
    painter.setPen(QPen{Theme::current().hover, double(stroke()), Qt::SolidLine, Qt::FlatCap});
    drawArc(painter, ring(), end - degreesAround, end + degreesAround);
    painter.setPen(QPen{color(), double(stroke()), Qt::SolidLine, Qt::RoundCap});
    drawArc(painter, ring(), std::max(0.0, end - degreesAround), end);
    // A ring that is nearly whole ends beside its start.
    if (end > degreesOfTurn - 2 * degreesAround) drawArc(painter, ring(), 0, degreesAround);
}
