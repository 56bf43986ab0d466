#include "capture/TitleText.h"

#include "model/records/OneLine.h"

#include <algorithm>

namespace {

/// Puts together what is kept of a text, part by part.
class KeptText {
public:
    void append(QStringView part)
    {
        if (m_joins) {
            const qsizetype length = m_kept.size();
            m_kept = std::move(m_kept).trimmed();
            noteSpace(m_kept.size() != length || (!part.isEmpty() && part.front().isSpace()));
            while (!part.isEmpty() && part.front().isSpace())
                part = part.sliced(1);
            if (part.isEmpty()) return;
            if (m_hadSpace && !m_kept.isEmpty()) m_kept += u' ';
            m_joins = m_hadSpace = false;
        }
        m_kept += part;
    }

    void cut(QStringView part)
    {
        m_joins = true;
        noteSpace(!part.isEmpty() && part.back().isSpace());
    }

    const QString &text() const { return m_kept; }

private:
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
