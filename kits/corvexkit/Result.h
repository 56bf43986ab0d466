#pragma once

#include <QString>

#include <cassert>
#include <concepts>
#include <utility>
#include <variant>

/// Why something could not be done: one sentence a person can read, with its full stop.
struct Error {
    QString sentence;
    bool operator==(const Error &) const = default;
};

/// The value of something that may fail, or the reason why it did. Nothing throws: asking a failed
/// result for its value, or a good one for its error, is a fault of the caller (asserted).
template <class T>
class [[nodiscard]] Result {
public:
    /// From a value, or from whatever converts to one by itself.
    template <std::convertible_to<T> U = T>
    Result(U &&value) : m_state{std::in_place_index<0>, std::forward<U>(value)}
    {
    }
    Result(Error error) : m_state{std::in_place_index<1>, std::move(error)} {}

    explicit operator bool() const { return m_state.index() == 0; }

    const T &value() const & { return part<0>(*this); }
    T &value() & { return part<0>(*this); }
    T &&value() && { return std::move(part<0>(*this)); }
    const Error &error() const { return part<1>(*this); }

    const T &operator*() const & { return value(); }
    T &operator*() & { return value(); }
    T &&operator*() && { return std::move(*this).value(); }
    const T *operator->() const { return &value(); }
    T *operator->() { return &value(); }

    T valueOr(T fallback) const & { return *this ? value() : std::move(fallback); }
    T valueOr(T fallback) && { return *this ? std::move(*this).value() : std::move(fallback); }

private:
    template <std::size_t I, class Self>
    static auto &part(Self &self)
    {
        auto *found = std::get_if<I>(&self.m_state);
        assert(found);
        return *found;
    }

    std::variant<T, Error> m_state;
};

/// Something that may fail and has no value to give. A default-made one is a success.
template <>
class [[nodiscard]] Result<void> {
public:
    Result() = default;
    Result(Error error) : m_error{std::move(error)}, m_failed{true} {}

    explicit operator bool() const { return !m_failed; }
    const Error &error() const
    {
        assert(m_failed);
        return m_error;
    }

private:
    Error m_error;
    bool m_failed = false;
};
