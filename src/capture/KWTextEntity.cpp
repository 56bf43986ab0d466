#include "capture/KWTextEntity.h"

#include <QVarLengthArray>

#include <algorithm>
#include <functional>
#include <span>
#include <tuple>
#include <typeinfo>

using namespace Qt::StringLiterals;

namespace {

/// How many entities lie on each character of a text.
class Coverage {
public:
    Coverage(const TextEntities &entities, qsizetype size) : m_counts(size, 0)
    {
        for (const auto &each : entities)
            for (qint32 &count : countsOf(*each))
                ++count;
    }

    bool isCoveredByOthers(const KWTextEntity &entity)
    {
        return std::ranges::all_of(countsOf(entity), [](qint32 count) { return count >= 2; });
    }

    void remove(const KWTextEntity &entity)
    {
        for (qint32 &count : countsOf(entity))
            --count;
    }

private:
    std::span<qint32> countsOf(const KWTextEntity &entity)
    {
        const TextRange range = entity.range().within(m_counts.size());
        return {m_counts.data() + range.location, std::size_t(range.length)};
    }

    QVarLengthArray<qint32, 256> m_counts;
};

void dimCoveredEntities(const TextEntities &entities, qsizetype size)
{
    Coverage coverage{entities, size};
    for (const auto &each : entities) {
        if (!coverage.isCoveredByOthers(*each)) continue;
        each->setHighlighted(false);
        coverage.remove(*each);
    }
}

} // namespace

KWTextEntity::KWTextEntity(TextRange range, QString text, unsigned type)
    : m_range(range), m_text(std::move(text)), m_type(type)
{
}

bool KWTextEntity::isEqualToTextEntity(const KWTextEntity &other) const
{
    return typeid(*this) == typeid(other) && isEqualToTextEntityIngoringHighlighted(other) &&
           m_highlighted == other.m_highlighted;
}

bool KWTextEntity::isEqualToTextEntityIngoringHighlighted(const KWTextEntity &other) const
{
    return m_text == other.m_text && m_range == other.m_range && m_type == other.m_type;
}

std::size_t KWTextEntity::hash() const
{
    return std::hash<const void *>{}(this) ^ qHash(m_text) ^ qHashMulti(0, m_range.location, m_range.length) ^
           qHash(m_type) ^ qHash(m_highlighted);
}

QString KWTextEntity::description() const
{
    return u"range: {%1, %2}, text: %3, type: %4, highlighted: %5"_s.arg(
        QString::number(m_range.location), QString::number(m_range.length), m_text,
        isTag() ? u"tag"_s : u"other"_s, m_highlighted ? u"YES"_s : u"NO"_s);
}

TextEntities KWTextEntity::splicedTextEntitis(const TextEntities &entities, const QString &text)
{
    dimCoveredEntities(entities, text.size());

    TextEntities shown;
    std::ranges::copy_if(entities, std::back_inserter(shown), &KWTextEntity::highlighted,
                         &std::shared_ptr<KWTextEntity>::operator*);
    std::ranges::stable_sort(shown, {}, [](const auto &each) {
        return std::tuple{each->range().location, each->range().length};
    });

    TextEntities spliced;
    for (const auto &each : std::as_const(shown)) {
        const auto &last = spliced.isEmpty() ? nullptr : spliced.last();
        if (!last || last->range().end() < each->range().location) {
            spliced.append(each);
            continue;
        }
        const qsizetype start = last->range().location;
        last->setRange({start, each->range().end() - start});
    }
    // Once for all: thousands may have become one.
    for (const auto &each : std::as_const(spliced))
        if (each->text().size() != each->range().length)
            each->setText(text.mid(each->range().location, each->range().length));
    return spliced;
}

TextEntities KWTextEntity::reversedTextEntities(const TextEntities &entities)
{
    TextEntities reversed = entities;
    std::ranges::stable_sort(reversed, std::ranges::greater{},
                             [](const auto &each) { return each->range().location; });
    return reversed;
}
