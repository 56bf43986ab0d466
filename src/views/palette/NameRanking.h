#pragma once

#include "views/palette/FoundRow.h"

#include <QStringList>

/// Which of many names fit what was typed, best first: those that begin with it, those with words that begin
/// with its words, those that hold it somewhere. Of equals, what was used last; then as they were given.
/// Case and accents do not count.
class NameRanking {
public:
    explicit NameRanking(QList<FoundRow> rows);

    struct Found {
        QList<FoundRow> byWord; ///< marked where they fit
        QList<FoundRow> withinWord;
    };
    /// `recent`: ids, the last used first. Everything fits an empty text, what was used before in front.
    Found find(const QString &typed, const QStringList &recent) const;

private:
    QList<FoundRow> m_rows;
    QStringList m_folded; // the titles as they are compared
};
