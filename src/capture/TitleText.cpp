#include "capture/TitleText.h"

#include "model/records/OneLine.h"

#include <algorithm>

namespace {

constexpr QStringView dashes = u"-–—";
constexpr QStringView separators = u",;:-–—，；：、";
constexpr QStringView openingBrackets = u"([（［【";
constexpr QStringView closingBrackets = u")]）］】";
constexpr QStringView emphasis = u"*_";
constexpr QStringView endSigns = u".!?)…。！？）";

bool isWide(QChar sign) { return sign.unicode() >= 0x3000; }

bool isSeparator(QStringView text, qsizetype position)
{
    if (!separators.contains(text[position])) return false;
    return isWide(text[position]) || position + 1 == text.size() || text[position + 1].isSpace();
}

bool beginsWithClosingSign(QStringView text)
{
    const bool ends = endSigns.contains(text[0]) && (text.size() == 1 || !text[1].isLetterOrNumber());
    return ends || (isSeparator(text, 0) && !dashes.contains(text[0]));
}

// A pair of signs whose inside was cut.
bool isEmptyBracket(QStringView before, QStringView after)
{
    if (before.isEmpty() || after.isEmpty()) return false;
    if (emphasis.contains(before.back())) return after.front() == before.back();
    const qsizetype opening = openingBrackets.indexOf(before.back());
    return opening >= 0 && after.front() == closingBrackets[opening];
}

/// Puts together what is kept of a text, part by part.
class KeptText {
public:
    void append(QStringView part)
    {
        if (m_joins) {
            const bool closesEmphasis = !part.isEmpty() && emphasis.contains(part.front());
            trimEdges(part);
            while (isEmptyBracket(m_kept, part)) {
                m_kept.chop(1);
                part = part.sliced(1);
                trimEdges(part);
            }
            if (m_kept.isEmpty()) dropEndSigns(part);
            if (m_kept.isEmpty() || separators.contains(m_kept.back())) dropSeparator(part);
            if (part.isEmpty()) return;
            if (beginsWithClosingSign(part) || (closesEmphasis && emphasis.contains(part.front())))
                m_kept.truncate(sizeWithoutSeparators());
            else if (m_hadSpace && !m_kept.isEmpty())
                m_kept += u' ';
            m_joins = m_hadSpace = false;
        }
        m_kept += part;
    }

    void cut(QStringView part)
    {
        m_joins = true;
        noteSpace(!part.isEmpty() && part.back().isSpace());
    }

    /// A separator that a cut left at the end is none.
    QString text() const { return m_joins ? m_kept.first(sizeWithoutSeparators()) : m_kept; }

private:
    qsizetype sizeWithoutSeparators() const
    {
        const QStringView kept{m_kept};
        qsizetype end = kept.size();
        while (end > 0 && (kept[end - 1].isSpace() || isSeparator(kept.first(end), end - 1)))
            --end;
        return end;
    }

    void trimEdges(QStringView &part)
    {
        const qsizetype length = m_kept.size();
        m_kept = std::move(m_kept).trimmed();
        noteSpace(m_kept.size() != length || (!part.isEmpty() && part.front().isSpace()));
        dropSpace(part);
    }

    static void dropSpace(QStringView &part)
    {
        while (!part.isEmpty() && part.front().isSpace())
            part = part.sliced(1);
    }

    // "Tomorrow!! Call": they ended what was cut.
    static void dropEndSigns(QStringView &part)
    {
        const auto isSign = [](QChar unit) { return endSigns.contains(unit); };
        const auto rest = std::find_if_not(part.begin(), part.end(), isSign);
        if (rest != part.end() && !rest->isSpace()) return;
        part = part.sliced(rest - part.begin());
        dropSpace(part);
    }

    void dropSeparator(QStringView &part)
    {
        if (part.isEmpty() || !isSeparator(part, 0)) return;
        noteSpace(!isWide(part.front()));
        part = part.sliced(1);
        dropSpace(part);
    }

    void noteSpace(bool isSpace) { m_hadSpace = m_hadSpace || isSpace; }

    QString m_kept;
    bool m_joins = false;    // something was cut since the last unit kept
    bool m_hadSpace = false; // and white space stood around it
};

} // namespace

QString titleWithout(const QString &text, QList<TextRange> cuts)
{
    std::ranges::sort(cuts, {}, &TextRange::location);
    const QStringView view{text};
    KeptText kept;
    qsizetype position = 0;
    for (const TextRange &each : std::as_const(cuts)) {
        const TextRange range = each.within(text.size());
        if (range.end() <= position) continue;
        const qsizetype start = std::max(range.location, position);
        kept.append(view.sliced(position, start - position));
        kept.cut(view.sliced(start, range.end() - start));
        position = range.end();
    }
    kept.append(view.sliced(position));
    return onOneLine(kept.text());
}

QString masked(QString text, const QList<TextRange> &ranges)
{
    for (const TextRange &each : ranges) {
        const TextRange range = each.within(text.size());
        std::fill_n(text.begin() + range.location, range.length, QChar{QChar::ObjectReplacementCharacter});
    }
    return text;
}
