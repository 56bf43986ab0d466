#include "model/exchange/ZipWriter.h"

#include <QIODevice>
#include <QtEndian>

#include <algorithm>
#include <array>

namespace {

// APPNOTE section 4.3: the signatures, and the header fields that are the same for every file.
constexpr quint32 localHeader = 0x04034b50;
constexpr quint32 directoryHeader = 0x02014b50;
constexpr quint32 endOfDirectory = 0x06054b50;
constexpr quint16 versionNeeded = 20;
constexpr quint16 namesAreUtf8 = 1 << 11;
constexpr quint16 methodStored = 0;
constexpr quint16 methodDeflated = 8;

template <class Number>
void append(QByteArray &bytes, Number number)
{
    const Number little = qToLittleEndian(number);
    bytes.append(reinterpret_cast<const char *>(&little), sizeof little);
}

// The CRC of APPNOTE section 4.4.7.
quint32 crc32Of(const QByteArray &bytes)
{
    static const auto table = [] {
        std::array<quint32, 256> made{};
        for (quint32 byte = 0; byte < made.size(); ++byte) {
            quint32 rest = byte;
            for (int bit = 0; bit < 8; ++bit)
                rest = rest & 1 ? rest >> 1 ^ 0xedb88320 : rest >> 1;
            made[byte] = rest;
        }
        return made;
    }();
    quint32 crc = ~quint32{0};
    for (const char byte : bytes)
        crc = crc >> 8 ^ table[(crc ^ quint8(byte)) & 0xff];
    return ~crc;
}

// qCompress() puts the length and the zlib header (RFC 1950) before the deflated bytes, a checksum behind.
QByteArray deflate(const QByteArray &bytes)
{
    constexpr qsizetype before = 4 + 2;
    constexpr qsizetype behind = 4;
    const QByteArray compressed = qCompress(bytes, 9);
    return compressed.mid(before, compressed.size() - before - behind);
}

quint32 dosTimeOf(LocalTime time)
{
    using namespace std::chrono;
    const local_days day = floor<days>(time);
    const year_month_day date{day};
    const hh_mm_ss clock{floor<seconds>(time - day)};
    const quint32 year = quint32(std::clamp(int(date.year()), 1980, 2107) - 1980);
    return year << 25 | quint32(unsigned(date.month())) << 21 | quint32(unsigned(date.day())) << 16 |
           quint32(clock.hours().count()) << 11 | quint32(clock.minutes().count()) << 5 |
           quint32(clock.seconds().count()) / 2;
}

} // namespace

void ZipWriter::add(const QString &name, const QByteArray &contents, LocalTime modified)
{
    const QByteArray utf8 = name.toUtf8();
    const QByteArray data = contents.isEmpty() ? QByteArray{} : deflate(contents);
    QByteArray common;
    append(common, versionNeeded);
    append(common, namesAreUtf8);
    append(common, contents.isEmpty() ? methodStored : methodDeflated);
    append(common, dosTimeOf(modified));
    append(common, crc32Of(contents));
    append(common, quint32(data.size()));
    append(common, quint32(contents.size()));
    append(common, quint16(utf8.size()));
    append(common, quint16(0)); // no extra field

    QByteArray entry;
    append(entry, directoryHeader);
    append(entry, versionNeeded);
    entry += common;
    entry += QByteArray(2 + 2 + 2 + 4, '\0'); // no comment, the first disk, no attributes
    append(entry, m_length);
    m_directory.push_back(entry + utf8);

    QByteArray header;
    append(header, localHeader);
    write(header + common + utf8 + data);
}

bool ZipWriter::finish()
{
    const quint32 begin = m_length;
    for (const QByteArray &each : m_directory)
        write(each);
    QByteArray end;
    append(end, endOfDirectory);
    append(end, quint32(0)); // one disk
    append(end, quint16(m_directory.size()));
    append(end, quint16(m_directory.size()));
    append(end, m_length - begin);
    append(end, begin);
    append(end, quint16(0)); // no comment
    write(end);
    return m_isGood;
}

void ZipWriter::write(const QByteArray &bytes)
{
    m_isGood = m_isGood && m_device.write(bytes) == bytes.size();
    m_length += quint32(bytes.size());
}
