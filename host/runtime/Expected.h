/*
 * Expected.h - a small Expected<T>: a value or an error message, for
 * host functions that can fail.
 */
#ifndef CORVANE_HOST_EXPECTED_H
#define CORVANE_HOST_EXPECTED_H

#include <string>
#include <utility>
#include <variant>

namespace corvane::host {

struct Unexpected {
    std::string message;
};

inline Unexpected unexpected(std::string message)
{
    return Unexpected{std::move(message)};
}

template <typename T> class Expected {
public:
    Expected(T value) : v_(std::move(value)) {}
    Expected(Unexpected error) : v_(std::move(error)) {}
    bool has_value() const { return v_.index() == 0; }
    explicit operator bool() const { return has_value(); }
    T &value() { return std::get<0>(v_); }
    const T &value() const { return std::get<0>(v_); }
    T &operator*() { return value(); }
    const T &operator*() const { return value(); }
    T *operator->() { return &value(); }
    const T *operator->() const { return &value(); }
    const std::string &error() const { return std::get<1>(v_).message; }

private:
    std::variant<T, Unexpected> v_;
};

template <> class Expected<void> {
public:
    Expected() = default;
    Expected(Unexpected error) : error_(std::move(error.message)), ok_(false) {}
    bool has_value() const { return ok_; }
    explicit operator bool() const { return ok_; }
    const std::string &error() const { return error_; }

private:
    std::string error_;
    bool ok_ = true;
};

} // namespace corvane::host

#endif
