#pragma once

#include "corvexkit/Result.h"

#include <QByteArray>
#include <QJsonObject>
#include <QString>

#include <optional>

class QIODevice;

/// Reads one JSON object (RFC 8259) of any length whose members are values or arrays of objects, member
/// by member and element by element: it holds one of them at a time. The first error is the last answer.
/// An error says the line and what is wrong there, without a full stop.
class DocumentReader {
public:
    /// The longest value of a member, or element of an array, that is read.
    static constexpr qsizetype longestValue = 16 * 1024 * 1024;

    explicit DocumentReader(QIODevice &device) : m_device(device) {}

    /// The name of the next member; none at the end of the document.
    Result<std::optional<QString>> nextName();
    /// The value of the member just named.
    Result<QJsonValue> value();
    /// The next element of the array that is the value of the member just named; none at its end.
    Result<std::optional<QJsonObject>> nextElement();

    /// An error at the line where the last name, value or element began.
    Error errorHere(const QString &what) const { return errorAt(m_begin, what); }

private:
    enum class State { Start, BetweenMembers, AfterName, InArray };

    static Error errorAt(qint64 line, const QString &what);
    std::optional<char> peek();
    std::optional<char> next();
    std::optional<char> peekBehindSpace();
    Result<void> expect(char wanted);
    Result<QByteArray> bytesOfValue();
    Result<QJsonValue> parsed();

    QIODevice &m_device;
    QByteArray m_buffer;
    qsizetype m_position = 0;
    qint64 m_line = 1;
    qint64 m_begin = 1;
    State m_state = State::Start;
};
