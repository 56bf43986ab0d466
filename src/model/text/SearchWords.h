#pragma once

#include <QList>
#include <QString>
#include <QStringList>

/// A stretch of a text, in UTF-16 units.
struct TextMark {
    qsizetype position = 0;
    qsizetype length = 0;

    bool operator==(const TextMark &) const = default;
};

/// A word as searches compare it.
struct SearchWord {
    QString folded; ///< in compatibility form (Unicode NFKD) and case-folded, without accents
    TextMark mark;  ///< where it stands
};

/// The words of a text: runs of letters, marks and digits; in scripts without spaces, every character.
QList<SearchWord> searchWords(QStringView text);

/// What a person has typed to search for: the pieces between its spaces. A text fits a piece when the
/// piece's words stand in it in a row, the last of them perhaps only begun: "ven" fits "venue", and
/// "牛奶" fits "买牛奶".
class SearchPhrase {
public:
    explicit SearchPhrase(const QString &typed);

    /// Nothing that could be searched for.
    bool isEmpty() const { return m_pieces.isEmpty(); }
    /// The phrase in the query language of SQLite's FTS5: every piece must fit.
    QString matchExpression() const;
    /// Whether every piece stands in one of the texts. Without pieces nothing is searched for or found.
    bool fits(const QStringList &texts) const;
    /// Where the pieces stand in `text`, in text order; of a word only begun, its beginning.
    QList<TextMark> marksIn(QStringView text) const;

private:
    using Piece = QList<SearchWord>;

    QList<Piece> m_pieces;
};
