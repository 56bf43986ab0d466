#include "model/text/ShortenedText.h"

#include <QTextBoundaryFinder>

QString shortened(const QString &text, int longest, const QString &ending)
{
    QTextBoundaryFinder characters{QTextBoundaryFinder::Grapheme, text};
    for (int count = 0; count < longest; ++count)
        if (characters.toNextBoundary() < 0) return text;
    const qsizetype end = characters.position();
    return end < text.size() ? text.first(end) + ending : text;
}
