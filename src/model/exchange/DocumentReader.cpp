#include "model/exchange/DocumentReader.h"

#include "model/settings/KWLocalizedString.h"

#include <QIODevice>
#include <QJsonArray>
#include <QJsonDocument>

namespace {

constexpr qint64 chunkLength = 64 * 1024;

bool isSpace(char byte) { return byte == ' ' || byte == '\n' || byte == '\r' || byte == '\t'; }

/// Follows the bytes of one value, piece by piece, to its end.
class ValueEnd {
public:
    struct Found {
        qsizetype length; ///< how much of the piece belongs to the value
        bool isEnd;
    };

    Found findIn(QByteArrayView piece, bool isFirst)
    {
        for (qsizetype i = 0; i < piece.size(); ++i) {
            if (!(isFirst && i == 0) && endsBefore(piece[i])) return {i, true};
            if (endsWith(piece[i])) return {i + 1, true};
        }
        return {piece.size(), false};
    }

private:
    bool endsWith(char byte)
    {
        if (m_isInText) {
            if (m_isEscaped)
                m_isEscaped = false;
            else if (byte == '\\')
                m_isEscaped = true;
            else if (byte == '"')
                m_isInText = false;
            return !m_isInText && m_depth == 0;
        }
        if (byte == '"') m_isInText = true;
        if (byte == '{' || byte == '[') ++m_depth;
        if (byte == '}' || byte == ']') return --m_depth <= 0;
        return false;
    }

    // Only a number or a word ends so.
    bool endsBefore(char byte) const
    {
        return !m_isInText && m_depth == 0 && (isSpace(byte) || byte == ',' || byte == '}' || byte == ']');
    }

    int m_depth = 0;
    bool m_isInText = false;
    bool m_isEscaped = false;
};

} // namespace

Error DocumentReader::errorAt(qint64 line, const QString &what)
{
    return {KWLocalizedString("line %1: %2").arg(line).arg(what)};
}

std::optional<char> DocumentReader::peek()
{
    if (m_position == m_buffer.size()) {
        m_buffer = m_device.read(chunkLength);
        m_position = 0;
    }
    return m_buffer.isEmpty() ? std::nullopt : std::optional{m_buffer.at(m_position)};
}

std::optional<char> DocumentReader::next()
{
    const std::optional<char> byte = peek();
    if (byte) ++m_position;
    if (byte == '\n') ++m_line;
    return byte;
}

std::optional<char> DocumentReader::peekBehindSpace()
{
    while (peek() && isSpace(*peek()))
        next();
    return peek();
}

Result<void> DocumentReader::expect(char wanted)
{
    const std::optional<char> found = peekBehindSpace();
    if (found == wanted) {
        next();
        return {};
    }
    if (!found) return errorAt(m_line, KWLocalizedString("the document ends too early"));
    return errorAt(m_line, KWLocalizedString("“%1” was expected").arg(QLatin1Char{wanted}));
}

Result<QByteArray> DocumentReader::bytesOfValue()
{
    peekBehindSpace();
    m_begin = m_line;
    QByteArray bytes;
    ValueEnd end;
    while (peek()) {
        const ValueEnd::Found found =
            end.findIn(QByteArrayView{m_buffer}.sliced(m_position), bytes.isEmpty());
        const QByteArrayView piece = QByteArrayView{m_buffer}.sliced(m_position, found.length);
        bytes.append(piece);
        m_line += piece.count('\n');
        m_position += found.length;
        if (found.isEnd) return bytes;
        if (bytes.size() > longestValue)
            return errorAt(m_begin, KWLocalizedString("the value that begins here is too long"));
    }
    return errorAt(m_line, KWLocalizedString("the document ends too early"));
}

Result<QJsonValue> DocumentReader::parsed()
{
    const Result<QByteArray> bytes = bytesOfValue();
    if (!bytes) return bytes.error();
    QJsonParseError problem;
    const QJsonDocument document = QJsonDocument::fromJson('[' + *bytes + ']', &problem);
    if (problem.error != QJsonParseError::NoError)
        return errorHere(KWLocalizedString("this is not JSON (%1)").arg(problem.errorString()));
    return QJsonValue{document.array().first()};
}

Result<std::optional<QString>> DocumentReader::nextName()
{
    const bool isFirst = m_state == State::Start;
    if (isFirst)
        if (const Result<void> opened = expect('{'); !opened) return opened.error();
    m_begin = m_line;
    if (peekBehindSpace() == '}') {
        next();
        if (peekBehindSpace()) return errorAt(m_line, KWLocalizedString("there is more behind the document"));
        return std::optional<QString>{};
    }
    if (!isFirst)
        if (const Result<void> comma = expect(','); !comma) return comma.error();
    const Result<QJsonValue> name = parsed();
    if (!name) return name.error();
    if (!name->isString()) return errorHere(KWLocalizedString("a name was expected"));
    if (const Result<void> colon = expect(':'); !colon) return colon.error();
    m_state = State::AfterName;
    return std::optional{name->toString()};
}

Result<QJsonValue> DocumentReader::value()
{
    m_state = State::BetweenMembers;
    return parsed();
}

Result<std::optional<QJsonObject>> DocumentReader::nextElement()
{
    const bool isFirst = m_state == State::AfterName;
    if (isFirst)
        if (const Result<void> opened = expect('['); !opened) return opened.error();
    m_state = State::InArray;
    m_begin = m_line;
    if (peekBehindSpace() == ']') {
        next();
        m_state = State::BetweenMembers;
        return std::optional<QJsonObject>{};
    }
    if (!isFirst)
        if (const Result<void> comma = expect(','); !comma) return comma.error();
    const Result<QJsonValue> element = parsed();
    if (!element) return element.error();
    if (!element->isObject()) return errorHere(KWLocalizedString("a record was expected"));
    return std::optional{element->toObject()};
}
