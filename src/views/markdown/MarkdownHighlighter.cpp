#include "views/markdown/MarkdownHighlighter.h"

#include "model/text/MarkdownText.h"
#include "views/theme/Fonts.h"
#include "views/theme/Theme.h"

#include <QFontDatabase>
#include <QRegularExpression>
#include <QTextDocument>

using namespace Qt::StringLiterals;

namespace {

enum BlockState { Text = 0, Code = 1 };

QTextCharFormat colored(const QColor &color)
{
    QTextCharFormat format;
    format.setForeground(color);
    return format;
}

QTextCharFormat quiet() { return colored(Theme::current().faintText); }

QTextCharFormat code()
{
    QTextCharFormat format;
    format.setFontFamilies({QFontDatabase::systemFont(QFontDatabase::FixedFont).family()});
    format.setBackground(Theme::current().tag);
    return format;
}

QTextCharFormat emphasis(qsizetype marks)
{
    QTextCharFormat format;
    if (marks != 2) format.setFontItalic(true);
    if (marks >= 2) format.setFontWeight(QFont::DemiBold);
    return format;
}

QTextCharFormat struckOut()
{
    QTextCharFormat format;
    format.setFontStrikeOut(true);
    return format;
}

QTextCharFormat heading(qsizetype level)
{
    QTextCharFormat format = colored(Theme::current().text);
    format.setFontWeight(QFont::DemiBold);
    const double factor = level == 1 ? 1.35 : level == 2 ? 1.2 : 1.08;
    format.setProperty(QTextFormat::FontPixelSize,
                       qRound(Fonts::font(Fonts::Role::Body).pixelSize() * factor));
    return format;
}

const QRegularExpression &linkPattern()
{
    static const QRegularExpression pattern{uR"(\[([^\[\]]*)\]\(([^()\s]+)\)|)"_s +
                                            MarkdownText::addressPattern()};
    return pattern;
}

} // namespace

MarkdownHighlighter::MarkdownHighlighter(QTextDocument *document) : QSyntaxHighlighter(document) {}

QString MarkdownHighlighter::linkAt(const QString &line, qsizetype place)
{
    for (auto found = linkPattern().globalMatch(line); found.hasNext();) {
        const QRegularExpressionMatch link = found.next();
        if (place < link.capturedStart() || place >= link.capturedEnd()) continue;
        return link.hasCaptured(2) ? link.captured(2) : link.captured();
    }
    return {};
}

void MarkdownHighlighter::highlightBlock(const QString &line)
{
    if (highlightFence(line)) return;
    highlightLineStart(line);
    highlightSpans(line);
}

bool MarkdownHighlighter::highlightFence(const QString &line)
{
    static const QRegularExpression fence{uR"(^ {0,3}(?:```|~~~))"_s};
    const bool isInside = previousBlockState() == Code;
    const bool isFence = fence.match(line).hasMatch();
    setCurrentBlockState(isInside != isFence ? Code : Text);
    if (isFence)
        merge(0, line.size(), quiet());
    else if (isInside)
        merge(0, line.size(), code());
    return isFence || isInside;
}

void MarkdownHighlighter::highlightLineStart(const QString &line)
{
    static const QRegularExpression headings{uR"(^ {0,3}(#{1,6})\s)"_s};
    static const QRegularExpression marks{uR"(^\s*(?:[-*+]|\d{1,9}[.)])\s+(?:\[([ xX])\]\s)?|^\s{0,3}>+)"_s};
    if (const auto found = headings.match(line); found.hasMatch()) {
        merge(0, line.size(), heading(found.capturedLength(1)));
        merge(0, found.capturedEnd(1), quiet());
        return;
    }
    const auto found = marks.match(line);
    if (!found.hasMatch()) return;
    const bool isQuote = line.trimmed().startsWith(u'>');
    const bool isTicked = found.hasCaptured(1) && found.capturedView(1) != u" ";
    if (isQuote || isTicked) {
        QTextCharFormat rest = quiet();
        if (isQuote) rest.setFontItalic(true);
        if (isTicked) rest.setFontStrikeOut(true);
        merge(found.capturedEnd(), line.size() - found.capturedEnd(), rest);
    }
    merge(0, found.capturedEnd(), colored(Theme::current().accentText));
}

// Code first: in it nothing else is meant.
void MarkdownHighlighter::highlightSpans(const QString &line)
{
    static const QRegularExpression codes{uR"((`+)(?!`)(.+?)(?<!`)\1(?!`))"_s};
    static const QRegularExpression emphases{
        uR"((?<![*\w])(\*{1,3})(?=[^\s*])(.+?)(?<=[^\s*])\1(?!\*)|(?<![_\w])(_{1,3})(?=[^\s_])(.+?)(?<=[^\s_])\3(?![_\w]))"_s};
    static const QRegularExpression strikes{uR"((~~)(?=\S)(.+?)(?<=\S)~~)"_s};

    QString rest = line;
    const auto each = [&rest](const QRegularExpression &pattern, const auto &show) {
        for (auto found = pattern.globalMatch(QString{rest}); found.hasNext();)
            show(found.next());
    };
    const auto mark = [this](qsizetype start, qsizetype end, qsizetype width, const QTextCharFormat &format) {
        merge(start, end - start, format);
        merge(start, width, quiet());
        merge(end - width, width, quiet());
    };
    each(codes, [&](const QRegularExpressionMatch &found) {
        mark(found.capturedStart(), found.capturedEnd(), found.capturedLength(1), code());
        rest.replace(found.capturedStart(), found.capturedLength(),
                     QString{found.capturedLength(), QChar::ObjectReplacementCharacter});
    });
    each(linkPattern(), [&](const QRegularExpressionMatch &found) {
        QTextCharFormat link = colored(Theme::current().accentText);
        link.setFontUnderline(true);
        const bool isNamed = found.hasCaptured(2);
        merge(found.capturedStart(), found.capturedLength(), isNamed ? quiet() : link);
        if (isNamed) merge(found.capturedStart(1), found.capturedLength(1), link);
        rest.replace(found.capturedStart(), found.capturedLength(),
                     QString{found.capturedLength(), QChar::ObjectReplacementCharacter});
    });
    each(emphases, [&](const QRegularExpressionMatch &found) {
        const qsizetype width = std::max(found.capturedLength(1), found.capturedLength(3));
        mark(found.capturedStart(), found.capturedEnd(), width, emphasis(width));
    });
    each(strikes, [&](const QRegularExpressionMatch &found) {
        mark(found.capturedStart(), found.capturedEnd(), found.capturedLength(1), struckOut());
    });
}

void MarkdownHighlighter::merge(qsizetype start, qsizetype length, const QTextCharFormat &format)
{
    for (qsizetype i = start; i < start + length; ++i) {
        QTextCharFormat merged = this->format(int(i));
        merged.merge(format);
        setFormat(int(i), 1, merged);
    }
}
