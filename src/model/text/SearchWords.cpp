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

// Whether the words of the piece stand in the text from its word `first` on.
bool standsAt(qsizetype first, const QList<SearchWord> &piece, const QList<SearchWord> &words)
{
    if (first + piece.size() > words.size()) return false;
    const qsizetype last = piece.size() - 1;
    for (qsizetype i = 0; i <= last; ++i)
        if (!fits(piece[i], words[first + i], i == last)) return false;
    return true;
}

bool standsIn(const QList<SearchWord> &words, const QList<SearchWord> &piece)
{
    for (qsizetype first = 0; first < words.size(); ++first)
        if (standsAt(first, piece, words)) return true;
    return false;
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
        if (Piece words = searchWords(each); !words.isEmpty()) m_pieces.append(std::move(words));
}

QString SearchPhrase::matchExpression() const
{
    QStringList pieces;
    for (const Piece &each : m_pieces) {
        QStringList words;
        for (const SearchWord &word : each)
            words << word.folded;
        pieces << u'"' + words.join(u' ') + u"\" *"_s;
    }
    return pieces.join(u" AND "_s);
}

bool SearchPhrase::fits(const QStringList &texts) const
{
    QList<QList<SearchWord>> words;
    for (const QString &each : texts)
        words.append(searchWords(each));
    return !isEmpty() && std::ranges::all_of(m_pieces, [&words](const Piece &piece) {
        return std::ranges::any_of(words, [&piece](const auto &each) { return standsIn(each, piece); });
    });
}

QList<TextMark> SearchPhrase::marksIn(QStringView text) const
{
    const QList<SearchWord> words = searchWords(text);
    QList<TextMark> marks;
    for (const Piece &piece : m_pieces)
        for (qsizetype first = 0; first < words.size(); ++first) {
            if (!standsAt(first, piece, words)) continue;
            const auto here = words.cbegin() + first;
            const qsizetype last = piece.size() - 1;
            // A letter that folds to several has no beginning of its own to mark.
            const SearchWord &end = here[last];
            const bool isPlain = end.folded.size() == end.mark.length;
            const qsizetype length = isPlain ? piece[last].folded.size() : end.mark.length;
            marks.append({here->mark.position, end.mark.position + length - here->mark.position});
        }
    std::ranges::sort(marks, {}, &TextMark::position);
    return marks;
}
