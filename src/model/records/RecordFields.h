#pragma once

#include <QLatin1StringView>

#include <cstddef>
#include <cstdint>
#include <string_view>
#include <tuple>
#include <type_traits>

/// What a change of a field means to the service: the record in general, its text, or its place only.
enum class Change : std::uint8_t { None = 0, General = 1, Content = 2, Order = 4 };

/// One field of a value twin: its name (also the column's), the member, the key in JSON, and the kind
/// of change that setting it is. Everything that treats fields alike (columns, reading and writing,
/// JSON, change masks, differences) is made from these.
template <class Owner, class Value>
struct Field {
    std::string_view name;
    Value Owner::*member;
    std::string_view jsonKey;
    Change change;

    template <class Twin>
    const Value &of(const Twin &twin) const
    {
        return twin.*member;
    }
    template <class Twin>
    Value &of(Twin &twin) const
    {
        return twin.*member;
    }
};

struct Json {
    std::string_view key;
};

template <class Owner, class Value>
constexpr Field<Owner, Value> field(std::string_view name, Value Owner::*member,
                                    Change change = Change::General)
{
    return {name, member, name, change};
}

template <class Owner, class Value>
constexpr Field<Owner, Value> field(std::string_view name, Value Owner::*member, Json json,
                                    Change change = Change::General)
{
    return {name, member, json.key, change};
}

template <class... Fields>
constexpr std::tuple<Fields...> fields(Fields... list)
{
    return {list...};
}

/// The field table of a value twin; specialised beside each twin. The order is the order of columns.
template <class Twin>
inline constexpr auto recordFields = std::tuple<>{};

template <class Twin>
inline constexpr std::size_t fieldCount = std::tuple_size_v<decltype(recordFields<Twin>)>;

/// Calls `visit(field, index)` for every field of the twin, in table order.
template <class Twin, class Visitor>
constexpr void forEachField(Visitor &&visit)
{
    std::size_t index = 0;
    std::apply([&](const auto &...each) { (visit(each, index++), ...); }, recordFields<Twin>);
}

/// A set of a twin's fields, one bit each in table order.
using FieldMask = std::uint64_t;

/// The fields in which the two versions differ.
template <class Twin>
FieldMask difference(const Twin &one, const Twin &other)
{
    static_assert(fieldCount<Twin> <= 64);
    FieldMask mask = 0;
    forEachField<Twin>([&](const auto &each, std::size_t index) {
        if (!(each.of(one) == each.of(other))) mask |= FieldMask{1} << index;
    });
    return mask;
}

/// The kinds of change, as a mask of `Change` bits, that the fields in `mask` amount to.
template <class Twin>
std::uint8_t changesOf(FieldMask mask)
{
    std::uint8_t changes = 0;
    forEachField<Twin>([&](const auto &each, std::size_t index) {
        if (mask >> index & 1) changes |= std::uint8_t(each.change);
    });
    return changes;
}
