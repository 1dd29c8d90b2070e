// SPDX-License-Identifier: MIT
#include "environment/core/Strings.h"

#include "environment/core/Exception.h"

#include <charconv>
#include <cstdarg>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <cxxabi.h>
#include <memory>
#include <system_error>

namespace Kova::Strings {

std::string format(const char* fmt, ...) {
    std::va_list arguments;
    va_start(arguments, fmt);
    std::va_list again;
    va_copy(again, arguments);
    const int length = std::vsnprintf(nullptr, 0, fmt, arguments);
    va_end(arguments);
    std::string text;
    if (length >= 0) {
        text.resize(static_cast<std::size_t>(length) + 1);
        std::vsnprintf(text.data(), text.size(), fmt, again);
        text.pop_back();
    }
    va_end(again);
    if (length < 0)
        throw RuntimeError(std::string("The text cannot be formatted: ") + fmt);
    return text;
}

bool fetch(const char* text, int& value) {
    if (text == nullptr)
        return false;
    if (text[0] == '+' && text[1] >= '0' && text[1] <= '9')
        ++text;
    int number = 0;
    if (std::from_chars(text, text + std::strlen(text), number).ec != std::errc())
        return false;
    value = number;
    return true;
}

std::string demangle(const char* name) {
    int status = 0;
    const std::unique_ptr<char, void (*)(void*)> readable(abi::__cxa_demangle(name, nullptr, nullptr, &status),
                                                          std::free);
    return status == 0 ? readable.get() : name;
}

} // namespace Kova::Strings
