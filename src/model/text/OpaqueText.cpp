#include "model/text/OpaqueText.h"

#include "model/text/UnicodeText.h"

#include <algorithm>
#include <array>

using namespace Qt::StringLiterals;

namespace {

bool isGraphicAscii(QChar unit) { return unit > u' ' && unit < u'\u007F'; }
bool isAsciiWordUnit(QChar unit) { return unit < u'\u0080' && isWordCharacter(unit.unicode()); }

bool isMailAddress(QStringView chunk)
{
    const qsizetype at = chunk.indexOf(u'@');
    if (at <= 0 || !isAsciiWordUnit(chunk[at - 1])) return false;
    const QStringView domain = chunk.sliced(at + 1);
    const qsizetype dot = domain.indexOf(u'.');
    return dot > 0 && dot + 1 < domain.size() && isAsciiWordUnit(domain[0]) &&
           isAsciiWordUnit(domain[dot + 1]);
}

// A host and what follows it: "example.org/top".
bool isBareAddress(QStringView chunk)
{
    qsizetype start = 0;
    while (start < chunk.size() && !isAsciiWordUnit(chunk[start]))
        ++start;
    qsizetype end = start;
    qsizetype label = start; // where the last one begins
    for (; end < chunk.size() && (isAsciiWordUnit(chunk[end]) || chunk[end] == u'-' || chunk[end] == u'.');
         ++end)
        if (chunk[end] == u'.') label = end + 1;
    if (label == start || end - label < 2 || end == chunk.size()) return false;
    const QStringView domain = chunk.sliced(label, end - label);
    if (!std::ranges::all_of(domain, [](QChar unit) { return unit.isLetter(); })) return false;
    return chunk[end] == u'/' || chunk[end] == u'?' || chunk[end] == u':';
}

bool isLink(QStringView chunk)
{
    const qsizetype scheme = chunk.indexOf("://"_L1);
    if (scheme > 0 && isAsciiWordUnit(chunk[scheme - 1])) return true;
    return chunk.startsWith("www."_L1, Qt::CaseInsensitive) || isMailAddress(chunk) || isBareAddress(chunk);
}

struct QuotationMarks {
    char16_t opening;
    char16_t closing;
};

constexpr std::array<QuotationMarks, 9> quotationMarks{{
    {u'"', u'"'},
    {u'`', u'`'},
    {u'\'', u'\''},
    {u'“', u'”'},
    {u'„', u'“'},
    {u'«', u'»'},
    {u'「', u'」'},
    {u'『', u'』'},
    {u'‘', u'’'},
}};

bool mayOpen(QStringView text, qsizetype position)
{
    const QChar mark = text[position];
    const bool isStraight = mark == u'"' || mark == u'\'' || mark == u'`';
    return !isStraight || !isWordCharacter(characterAt(text, position - 1));
}

bool mayBeApostrophe(QStringView text, qsizetype position)
{
    if (text[position] != u'\'' && text[position] != u'’') return false;
    return isWordCharacter(characterAt(text, position + 1)) || text[position - 1].isSpace();
}

// -1 = nowhere.
qsizetype closingMark(QStringView text, QChar mark, qsizetype opening)
{
    qsizetype closing = text.indexOf(mark, opening + 1);
    while (closing >= 0 && mayBeApostrophe(text, closing))
        closing = text.indexOf(mark, closing + 1);
    return closing;
}

} // namespace

bool holdsLinkMark(QStringView text)
{
    return text.contains(u'/') || text.contains(u'@') || text.contains(u'?') || text.contains(u':') ||
           text.contains("www."_L1, Qt::CaseInsensitive);
}

QList<TextRange> linkRanges(QStringView text)
{
    QList<TextRange> links;
    for (qsizetype start = 0; start < text.size();) {
        qsizetype end = start;
        while (end < text.size() && isGraphicAscii(text[end]))
            ++end;
        if (end > start && isLink(text.sliced(start, end - start))) links.append({start, end - start});
        start = end + 1;
    }
    return links;
}

QList<TextRange> quotationRanges(QStringView text)
{
    QList<TextRange> quotations;
    std::array<bool, quotationMarks.size()> isUnclosed{};
    for (qsizetype i = 0; i < text.size(); ++i) {
        for (std::size_t kind = 0; kind < quotationMarks.size(); ++kind) {
            if (text[i] != QChar{quotationMarks[kind].opening} || isUnclosed[kind] || !mayOpen(text, i))
                continue;
            const qsizetype closing = closingMark(text, QChar{quotationMarks[kind].closing}, i);
            isUnclosed[kind] = closing < 0;
            if (closing < 0) continue;
            quotations.append({i, closing + 1 - i});
            i = closing;
            break;
        }
    }
    return quotations;
}

bool isInside(const QList<TextRange> &ranges, qsizetype position)
{
    const auto after = std::ranges::upper_bound(ranges, position, {}, &TextRange::location);
    return after != ranges.begin() && std::prev(after)->contains(position);
}
