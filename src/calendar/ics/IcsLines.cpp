#include "calendar/ics/IcsLines.h"

IcsLines::IcsLines(const QByteArray &text) : m_left(text)
{
    constexpr QByteArrayView byteOrderMark{"\xEF\xBB\xBF"};
    if (m_left.startsWith(byteOrderMark)) m_left = m_left.sliced(byteOrderMark.size());
}

bool IcsLines::next()
{
    if (m_left.isEmpty()) return false;
    m_line = nextPiece().toByteArray();
    while (m_left.startsWith(' ') || m_left.startsWith('\t')) {
        m_left = m_left.sliced(1);
        m_line += nextPiece();
    }
    return true;
}

QByteArrayView IcsLines::nextPiece()
{
    const qsizetype end = m_left.indexOf('\n');
    const QByteArrayView rest = m_left;
    m_left = end < 0 ? QByteArrayView{} : m_left.sliced(end + 1);
    const QByteArrayView piece = end < 0 ? rest : rest.first(end);
    return piece.endsWith('\r') ? piece.chopped(1) : piece;
}
