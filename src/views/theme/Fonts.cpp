#include "views/theme/Fonts.h"

#include "views/theme/Metrics.h"

#include <QFontMetrics>
#include <QGuiApplication>
#include <QHash>
#include <QPainter>
#include <QStaticText>

#include <algorithm>
#include <array>
#include <cmath>
#include <optional>
#include <vector>

using namespace Qt::StringLiterals;

namespace {

struct FontSize {
    int pixels;
    int weight;
};

constexpr std::array<FontSize, 9> fontSizes{{
    {20, 650},
    {17, QFont::DemiBold},
    {13, QFont::Normal},
    {13, QFont::DemiBold},
    {12, QFont::Normal},
    {11, QFont::Normal},
    {11, QFont::DemiBold},
    {60, 650},
    {30, 650},
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

QStaticText shaped(const QString &text, const QFont &font)
{
    QStaticText shape{text};
    shape.setTextFormat(Qt::PlainText);
    shape.setPerformanceHint(QStaticText::AggressiveCaching);
    shape.prepare({}, font);
    return shape;
}

/// The ten digits of a font, each in the middle of a box as wide as the widest.
struct Digits {
    explicit Digits(const QFont &font)
    {
        for (std::size_t digit = 0; digit < shapes.size(); ++digit) {
            shapes[digit] = shaped(QString{QChar{char16_t(u'0' + digit)}}, font);
            width = std::max(width, shapes[digit].size().width());
        }
    }
    std::array<QStaticText, 10> shapes;
    double width = 0;
};

/// A line of text, shaped.
struct Line {
    struct Piece {
        double x;
        QStaticText shape;
    };
    std::vector<Piece> pieces;
    double width = 0;

    void append(const QStaticText &shape, double advance)
    {
        pieces.push_back({width + (advance - shape.size().width()) / 2, shape});
        width += advance;
    }
};

Line makeLine(const QString &text, const QFont &font, std::optional<Digits> &digits)
{
    Line line;
    const bool isTabular = !text.isRightToLeft() && std::any_of(text.begin(), text.end(), isDigit);
    if (isTabular && !digits) digits.emplace(font);
    for (qsizetype start = 0; start < text.size();) {
        qsizetype end = start + 1;
        if (isTabular && isDigit(text.at(start))) {
            line.append(digits->shapes[std::size_t(text.at(start).unicode() - u'0')], digits->width);
        } else {
            while (end < text.size() && !(isTabular && isDigit(text.at(end))))
                ++end;
            const QStaticText shape = shaped(text.mid(start, end - start), font);
            line.append(shape, shape.size().width());
        }
        start = end;
    }
    return line;
}

/// The lines of one font that were shaped lately.
struct ShapedLines {
    QFont font;
    std::optional<Digits> digits;
    QHash<QString, Line> lines;

    const Line &line(const QString &text)
    {
        constexpr qsizetype mostKept = 1000;
        if (const auto known = lines.constFind(text); known != lines.constEnd()) return *known;
        if (lines.size() >= mostKept) lines.clear();
        return *lines.insert(text, makeLine(text, font, digits));
    }
};

ShapedLines &shapedLines(Fonts::Role role)
{
    static std::array<ShapedLines, fontSizes.size()> all;
    ShapedLines &found = all[std::size_t(role)];
    const QFont &font = Fonts::font(role);
    if (found.font != font) found = {font, std::nullopt, {}};
    return found;
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

int Fonts::width(Role role, const QString &text)
{
    return int(std::ceil(shapedLines(role).line(text).width));
}

void Fonts::drawLine(QPainter &painter, Role role, const QRect &bounds, Qt::Alignment side,
                     const QString &text, LineStyle style)
{
    ShapedLines &shapes = shapedLines(role);
    const bool fits = shapes.line(text).width <= bounds.width() + 1;
    const Line &line =
        fits ? shapes.line(text)
             : shapes.line(QFontMetrics{shapes.font}.elidedText(text, Qt::ElideRight, bounds.width()));
    double x = bounds.left();
    if (side & Qt::AlignRight)
        x += bounds.width() - line.width;
    else if (side & Qt::AlignHCenter)
        x += (bounds.width() - line.width) / 2;
    const QFontMetrics metrics{shapes.font};
    const int top = bounds.top() + (bounds.height() - metrics.height()) / 2;
    painter.setFont(shapes.font);
    for (const Line::Piece &piece : line.pieces)
        painter.drawStaticText(QPointF{x + piece.x, double(top)}, piece.shape);
    // Shaped text is drawn without the lines of its font.
    if (style == LineStyle::StruckOut)
        painter.fillRect(QRectF{x, double(top + metrics.ascent() - metrics.strikeOutPos()), line.width,
                                double(metrics.lineWidth())},
                         painter.pen().color());
}
