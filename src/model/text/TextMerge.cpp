#include "model/text/TextMerge.h"

#include <algorithm>

namespace {

// The stretch of the base that one text replaced, and by what.
struct Change {
    qsizetype begin;
    qsizetype end;
    QString replacement;
};

Change changeBetween(const QString &base, const QString &text)
{
    const qsizetype shorter = std::min(base.size(), text.size());
    qsizetype head = 0;
    while (head < shorter && base.at(head) == text.at(head))
        ++head;
    qsizetype tail = 0;
    while (tail < shorter - head && base.at(base.size() - 1 - tail) == text.at(text.size() - 1 - tail))
        ++tail;
    return {head, base.size() - tail, text.mid(head, text.size() - tail - head)};
}

} // namespace

QString mergedText(const QString &base, const QString &mine, const QString &theirs, QChar separator)
{
    const Change own = changeBetween(base, mine);
    const Change other = changeBetween(base, theirs);
    if (mine == theirs || mine == base) return theirs;
    QString merged = base;
    const bool areAtOnePlace = own.begin == other.begin;
    if (other.end <= own.begin && !areAtOnePlace)
        return merged.replace(own.begin, own.end - own.begin, own.replacement)
            .replace(other.begin, other.end - other.begin, other.replacement);
    if (own.end <= other.begin && !areAtOnePlace)
        return merged.replace(other.begin, other.end - other.begin, other.replacement)
            .replace(own.begin, own.end - own.begin, own.replacement);

    const qsizetype begin = std::min(own.begin, other.begin);
    const qsizetype end = std::max(own.end, other.end);
    const auto stretch = [&](const Change &change) {
        return base.mid(begin, change.begin - begin) + change.replacement +
               base.mid(change.end, end - change.end);
    };
    const QString kept = stretch(other);
    return merged.replace(begin, end - begin,
                          kept.isEmpty() ? stretch(own) : kept + separator + stretch(own));
}
