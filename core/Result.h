#pragma once

#include <utility>
#include <variant>

namespace reelhouse {

/// Marks a failure on its way into a Result: `return Failure {error};`.
template <class Error>
struct Failure {
    Error error;
};

template <class Error>
Failure(Error) -> Failure<Error>;

/// Either a value or the error that prevented it. Named like std::expected so that it can become
/// one. Reading the side that is not there is a programming error.
template <class Value, class Error>
class Result final {
public:
    Result(Value value)
        : m_content(std::in_place_index<0>, std::move(value))
    {
    }
    Result(Failure<Error> failure)
        : m_content(std::in_place_index<1>, std::move(failure.error))
    {
    }

    // NOLINTNEXTLINE(readability-identifier-naming): std's
    bool has_value() const { return m_content.index() == 0; }
    explicit operator bool() const { return has_value(); }
    Value& value() { return *std::get_if<0>(&m_content); }
    const Value& value() const { return *std::get_if<0>(&m_content); }
    const Error& error() const { return *std::get_if<1>(&m_content); }

private:
    std::variant<Value, Error> m_content;
};

} // namespace reelhouse
