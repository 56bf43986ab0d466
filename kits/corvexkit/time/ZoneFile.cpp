#include "corvexkit/time/ZoneFile.h"

#include <cstdint>

using namespace std::chrono;

namespace {

class ByteReader {
public:
    explicit ByteReader(std::string_view bytes) : m_bytes{bytes} {}

    std::size_t left() const { return m_bytes.size(); }
    std::string_view rest() const { return m_bytes; }

    std::string_view take(std::size_t count)
    {
        const std::string_view taken = m_bytes.substr(0, count);
        m_bytes.remove_prefix(taken.size());
        return taken;
    }

    // Two's complement, the highest byte first.
    std::int64_t takeNumber(std::size_t size)
    {
        std::uint64_t number = 0;
        for (const char byte : take(size))
            number = number << 8 | std::uint8_t(byte);
        return size == 4 ? std::int64_t(std::int32_t(number)) : std::int64_t(number);
    }

private:
    std::string_view m_bytes;
};

constexpr std::size_t headerSize = 44;

struct Header {
    char version;
    std::size_t utcFlags, standardFlags, leapSeconds, transitions, types, characters;

    std::size_t bodySize(std::size_t timeSize) const
    {
        return transitions * (timeSize + 1) + types * 6 + characters + leapSeconds * (timeSize + 4) +
               standardFlags + utcFlags;
    }
};

std::optional<Header> takeHeader(ByteReader &reader)
{
    if (reader.left() < headerSize || reader.take(4) != "TZif") return {};
    Header header{};
    header.version = reader.take(1)[0];
    reader.take(15);
    // In the order of the file. No count of a real file comes near the limit.
    for (std::size_t *count : {&header.utcFlags, &header.standardFlags, &header.leapSeconds,
                               &header.transitions, &header.types, &header.characters}) {
        const std::int64_t number = reader.takeNumber(4);
        if (number < 0 || number > 100'000) return {};
        *count = std::size_t(number);
    }
    return header;
}

bool takeBody(ByteReader &reader, const Header &header, std::size_t timeSize, ZoneFile &file)
{
    if (reader.left() < header.bodySize(timeSize) || header.types == 0 || header.leapSeconds != 0)
        return false;
    ByteReader times{reader.take(header.transitions * timeSize)};
    const std::string_view types = reader.take(header.transitions);
    ByteReader typeRecords{reader.take(header.types * 6)};
    reader.take(header.characters + header.standardFlags + header.utcFlags);

    std::vector<seconds> offsets;
    for (std::size_t i = 0; i < header.types; ++i) {
        offsets.emplace_back(typeRecords.takeNumber(4));
        if (abs(offsets.back()) > hours{26}) return false;
        typeRecords.take(2);
    }
    file.firstOffset = offsets[0];
    for (const char type : types) {
        const ZoneTransition transition{sys_seconds{seconds{times.takeNumber(timeSize)}}, {}};
        if (std::uint8_t(type) >= offsets.size()) return false;
        if (!file.transitions.empty() && transition.at <= file.transitions.back().at) return false;
        file.transitions.push_back({transition.at, offsets[std::uint8_t(type)]});
    }
    return true;
}

} // namespace

std::optional<ZoneFile> ZoneFile::parse(std::string_view bytes)
{
    ByteReader reader{bytes};
    ZoneFile file;
    std::optional<Header> header = takeHeader(reader);
    if (!header) return {};
    if (header->version == '\0')
        return takeBody(reader, *header, 4, file) ? std::optional{file} : std::nullopt;

    // From version 2 on the whole file follows again with 64-bit times, then the rule between line feeds.
    if (reader.left() < header->bodySize(4)) return {};
    reader.take(header->bodySize(4));
    header = takeHeader(reader);
    if (!header || !takeBody(reader, *header, 8, file)) return {};
    const std::string_view footer = reader.rest();
    const std::size_t end = footer.find('\n', 1);
    if (!footer.starts_with('\n') || end == std::string_view::npos) return {};
    file.rule = footer.substr(1, end - 1);
    return file;
}
