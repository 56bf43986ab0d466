#include "capture/KWTagTextEntity.h"

#include "model/text/TwitterText.h"

#include <algorithm>

namespace {

TagTextEntities tagEntitiesAt(const QList<TextRange> &ranges, const QString &text)
{
    TagTextEntities entities;
    entities.reserve(ranges.size());
    for (const TextRange &each : ranges)
        entities.append(std::make_shared<KWTagTextEntity>(each, text.mid(each.location, each.length)));
    return entities;
}

// Half of a character must not stay behind.
bool isSeparatorAt(QStringView title, qsizetype position)
{
    return position < title.size() && !title[position].isSurrogate();
}

/// What is left of a title that is cut from its end on.
class Rest {
public:
    explicit Rest(QStringView title) : m_title(title), m_uncutSize(title.size()) {}

    qsizetype uncutSize() const { return m_uncutSize; }

    void cut(TextRange range)
    {
        if (range.end() < m_uncutSize) m_tail.append({range.end(), m_uncutSize - range.end()});
        m_uncutSize = range.location;
    }

    bool endsWith(QStringView text) const
    {
        for (const TextRange &part : m_tail) {
            const QStringView kept = m_title.sliced(part.location, part.length);
            if (kept.size() >= text.size()) return kept.endsWith(text);
            if (!text.endsWith(kept)) return false;
            text.chop(kept.size());
        }
        return m_title.first(m_uncutSize).endsWith(text);
    }

private:
    QStringView m_title;
    qsizetype m_uncutSize;
    QList<TextRange> m_tail; // the last part first
};

} // namespace

TagTextEntities KWTagTextEntity::possibleEntitiesInText(const QString &text)
{
    return tagEntitiesAt(TwitterText::cx_possibleHashtagsInText(text), text);
}

TagTextEntities KWTagTextEntity::validEntitiesInText(const QString &text)
{
    return tagEntitiesAt(TwitterText::cx_validHashtagsInText(text), text);
}

bool KWTagTextEntity::isValidPrefix(QStringView text)
{
    return TwitterText::cx_isValidPrefixForHashTag(text);
}

QList<TextRange> rangesCutWithTags(const QString &title, const TagTextEntities &entities)
{
    TagTextEntities lastFirst = entities;
    std::ranges::stable_sort(lastFirst, std::ranges::greater{},
                             [](const auto &each) { return each->range().location; });

    Rest rest{title};
    QList<TextRange> cuts;
    qsizetype nextTag = -1;
    for (const auto &each : std::as_const(lastFirst)) {
        TextRange cut = each->range().within(title.size());
        if (cut.end() != nextTag && isSeparatorAt(title, cut.end()) && !rest.endsWith(each->text()))
            ++cut.length;
        nextTag = cut.location;
        cut = cut.within(rest.uncutSize());
        rest.cut(cut);
        cuts.append(cut);
    }
    std::ranges::reverse(cuts);
    return cuts;
}

void cx_removeTagTextEntities(const QString &title, const TagTextEntities &entities, QString *result,
                              QSet<QString> *tags)
{
    if (result) {
        QString rest;
        qsizetype from = 0;
        for (const TextRange &cut : rangesCutWithTags(title, entities)) {
            rest += QStringView{title}.sliced(from, cut.location - from);
            from = cut.end();
        }
        rest += QStringView{title}.sliced(from);
        *result = rest;
    }
    if (!tags) return;
    tags->clear();
    for (const auto &each : entities)
        tags->insert(each->tagName());
}
