#pragma once
// What a command ends with, and values that may come with an error instead.

#include <optional>
#include <string>
#include <utility>
#include <variant>

namespace zonara {

// The user's text of what went wrong; printed as "zonara COMMAND: message".
struct CommandError {
    std::string message;
    int exitCode = 1;
};

inline CommandError fail(std::string message) {
    return CommandError{std::move(message)};
}

// A command's end: done, or the error that stopped it.
class Outcome {
  public:
    Outcome() = default;
    Outcome(CommandError error) : failure(std::move(error)) {}

    bool ok() const { return !failure; }
    const CommandError& error() const { return *failure; }

  private:
    std::optional<CommandError> failure;
};

// A value, or the error that kept it from being made.
template <class T> class Expected {
  public:
    Expected(T value) : content(std::move(value)) {}
    Expected(CommandError error) : content(std::move(error)) {}

    explicit operator bool() const { return std::holds_alternative<T>(content); }
    T& operator*() { return std::get<T>(content); }
    const T& operator*() const { return std::get<T>(content); }
    T* operator->() { return &std::get<T>(content); }
    const T* operator->() const { return &std::get<T>(content); }
    const CommandError& error() const { return std::get<CommandError>(content); }

  private:
    std::variant<T, CommandError> content;
};

} // namespace zonara
