#pragma once

#include <QByteArray>

/// The lines of an iCalendar text, unfolded (RFC 5545 section 3.1), whether they end with CR LF or with LF.
class IcsLines {
public:
    /// Refers to the text, which outlives it.
    explicit IcsLines(const QByteArray &text);

    /// False behind the last one.
    bool next();
    /// Without its end.
    const QByteArray &line() const { return m_line; }

private:
    QByteArrayView nextPiece();

    QByteArrayView m_left;
    QByteArray m_line;
};
