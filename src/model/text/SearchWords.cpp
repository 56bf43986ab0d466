#include "model/text/SearchWords.h"

#include "model/text/UnicodeText.h"

#include <QStringList>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

QString folded(QStringView word)
{
    if (std::ranges::all_of(word, [](QChar each) { return each.unicode() < 0x80; }))
        return word.toString().toLower();
    QString text = word.toString().normalized(QString::NormalizationForm_KD).toCaseFolded();
    text.removeIf([](QChar each) { return each.category() == QChar::Mark_NonSpacing; });
    return text;
}

bool fits(const SearchWord &wanted, const SearchWord &word, bool isLast)
{
    return isLast ? word.folded.startsWith(wanted.folded) : word.folded == wanted.folded;
}

} // namespace

QList<SearchWord> searchWords(QStringView text)
{
    QList<SearchWord> words;
    qsizetype start = -1;
    const auto endAt = [&](qsizetype end) {
        if (start < 0) return;
        QString word = folded(text.sliced(start, end - start));
        if (!word.isEmpty()) words.append({std::move(word), {start, end - start}});
        start = -1;
    };
    for (qsizetype i = 0; i < text.size();) {
        const char32_t character = characterAt(text, i);
        const qsizetype next = i + (QChar::requiresSurrogates(character) ? 2 : 1);
        const bool standsAlone = isOfUnspacedScript(character) && !QChar::isMark(character);
        if (standsAlone || !isWordCharacter(character)) endAt(i);
        if (isWordCharacter(character) && start < 0) start = i;
        // Its marks belong to it.
        if (standsAlone && !QChar::isMark(characterAt(text, next))) endAt(next);
        i = next;
    }
    endAt(text.size());
    return words;
}

SearchPhrase::SearchPhrase(const QString &typed)
{
    for (const QString &each : typed.simplified().split(u' ', Qt::SkipEmptyParts))
        if (QList<SearchWord> words = searchWords(each); !words.isEmpty()) m_pieces.append(std::move(words));
}

QString SearchPhrase::matchExpression() const
{
    QStringList pieces;
    for (const QList<SearchWord> &each : m_pieces) {
        QStringList words;
        for (const SearchWord &word : each)
            words << word.folded;
        pieces << u'"' + words.join(u' ') + u"\" *"_s;
    }
    return pieces.join(u" AND "_s);
}

QList<TextMark> SearchPhrase::marksIn(QStringView text) const
{
    const QList<SearchWord> words = searchWords(text);
    QList<TextMark> marks;
    for (const QList<SearchWord> &piece : m_pieces)
        for (qsizetype first = 0; first + piece.size() <= words.size(); ++first) {
            const auto here = words.cbegin() + first;
            const qsizetype last = piece.size() - 1;
            bool isHere = true;
            for (qsizetype i = 0; i <= last && isHere; ++i)
                isHere = fits(piece[i], here[i], i == last);
            if (!isHere) continue;
            // A letter that folds to several has no beginning of its own to mark.
            const SearchWord &end = here[last];
            const bool isPlain = end.folded.size() == end.mark.length;
            const qsizetype length = isPlain ? piece[last].folded.size() : end.mark.length;
            marks.append({here->mark.position, end.mark.position + length - here->mark.position});
        }
    std::ranges::sort(marks, {}, &TextMark::position);
    return marks;
}
