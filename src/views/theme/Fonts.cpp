#include "views/theme/Fonts.h"

#include "views/theme/Metrics.h"

#include <QFontMetrics>
#include <QGuiApplication>
#include <QHash>
#include <QPainter>
#include <QStringList>

#include <algorithm>
#include <array>
#include <cmath>

using namespace Qt::StringLiterals;

namespace {

struct FontSize {
    int pixels;
    int weight;
};

constexpr std::array<FontSize, 8> fontSizes{{
    {20, 650},
    {17, QFont::DemiBold},
    {13, QFont::Normal},
    {13, QFont::DemiBold},
    {12, QFont::Normal},
    {12, QFont::DemiBold},
    {11, QFont::Normal},
    {11, QFont::DemiBold},
}};

QFont makeFont(FontSize size, double scale)
{
    static const QString desktopFamily = QGuiApplication::font().family();
    QFont font;
    font.setFamilies({u"Inter"_s, desktopFamily});
    font.setPixelSize(std::max(6, int(std::lround(size.pixels * scale))));
    font.setWeight(QFont::Weight(size.weight));
    return font;
}

bool isDigit(QChar character) { return character >= u'0' && character <= u'9'; }

int digitWidth(const QFontMetrics &metrics)
{
    int widest = 0;
    for (char16_t digit = u'0'; digit <= u'9'; ++digit)
        widest = std::max(widest, metrics.horizontalAdvance(QChar{digit}));
    return widest;
}

// Calls `visit(piece, width, isDigit)` for every digit and for every run without digits.
template <class Visitor>
void forEachTabularPiece(const QFontMetrics &metrics, const QString &text, Visitor visit)
{
    const int digit = digitWidth(metrics);
    for (qsizetype start = 0; start < text.size();) {
        qsizetype end = start + 1;
        const bool digits = isDigit(text.at(start));
        while (!digits && end < text.size() && !isDigit(text.at(end)))
            ++end;
        const QString piece = text.mid(start, end - start);
        visit(piece, digits ? digit : metrics.horizontalAdvance(piece), digits);
        start = end;
    }
}

bool needsTabular(const QString &text)
{
    return !text.isRightToLeft() && std::any_of(text.begin(), text.end(), isDigit);
}

} // namespace

const QFont &Fonts::font(Role role)
{
    static std::array<std::pair<double, QFont>, fontSizes.size()> made;
    auto &[scale, font] = made[std::size_t(role)];
    if (scale != Metrics::textScale()) {
        scale = Metrics::textScale();
        font = makeFont(fontSizes[std::size_t(role)], scale);
    }
    return font;
}

int Fonts::tabularWidth(const QFont &font, const QString &text)
{
    const QFontMetrics metrics{font};
    if (!needsTabular(text)) return metrics.horizontalAdvance(text);
    int width = 0;
    forEachTabularPiece(metrics, text, [&](const QString &, int advance, bool) { width += advance; });
    return width;
}

void Fonts::drawTabular(QPainter &painter, const QRect &bounds, Qt::Alignment alignment, const QString &text)
{
    if (!needsTabular(text)) {
        painter.drawText(bounds, int(alignment | Qt::AlignVCenter | Qt::AlignAbsolute | Qt::TextSingleLine),
                         text);
        return;
    }
    const QFontMetrics metrics{painter.font()};
    const int baseline = bounds.top() + (bounds.height() - metrics.height()) / 2 + metrics.ascent();
    int x = bounds.left();
    const int spare = bounds.width() - tabularWidth(painter.font(), text);
    if (alignment & Qt::AlignRight)
        x += spare;
    else if (alignment & Qt::AlignHCenter)
        x += spare / 2;
    forEachTabularPiece(metrics, text, [&](const QString &piece, int advance, bool digit) {
        const double inset = digit ? (advance - metrics.horizontalAdvance(piece)) / 2.0 : 0;
        painter.drawText(QPointF{x + inset, double(baseline)}, piece);
        x += advance;
    });
}
