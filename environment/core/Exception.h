// SPDX-License-Identifier: MIT
#pragma once

#include <exception>
#include <string>
#include <utility>

namespace Kova {

/// Base of everything that the environment and the widgets throw; carries a text for people.
class Exception : public std::exception {
public:
    explicit Exception(std::string message) : m_message(std::move(message)) {}

    [[nodiscard]] const char* what() const noexcept override { return m_message.c_str(); }

private:
    std::string m_message;
};

/// Something outside the program's control went wrong: input, a failed cast between node kinds, a resource.
class RuntimeError : public Exception {
public:
    using Exception::Exception;
};

/// An object was asked for something that its present state does not allow.
class StateError : public Exception {
public:
    using Exception::Exception;
};

} // namespace Kova
