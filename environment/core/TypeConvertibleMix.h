// SPDX-License-Identifier: MIT
#pragma once

#include <typeinfo>

namespace Kova {

/// Reports a checked cast that cannot be done.
/// @throws RuntimeError naming both types.
[[noreturn]] void castError(const std::type_info& from, const std::type_info& to);

/// Mixin base that gives the classes of one family checked casts to each other.
class TypeConvertibleMix {
public:
    virtual ~TypeConvertibleMix() = default;

    template <class T>
    [[nodiscard]] bool is_a() const {
        return dynamic_cast<const T*>(this) != nullptr;
    }

    /// Null when this object is no T.
    template <class T>
    [[nodiscard]] T* cast_ptr() {
        return dynamic_cast<T*>(this);
    }
    template <class T>
    [[nodiscard]] const T* cast_ptr() const {
        return dynamic_cast<const T*>(this);
    }

    /// @throws RuntimeError when this object is no T.
    template <class T>
    [[nodiscard]] T& cast_to() {
        if (T* object = cast_ptr<T>())
            return *object;
        castError(typeid(*this), typeid(T));
    }
    template <class T>
    [[nodiscard]] const T& cast_to() const {
        if (const T* object = cast_ptr<T>())
            return *object;
        castError(typeid(*this), typeid(T));
    }

protected:
    TypeConvertibleMix() = default;
    TypeConvertibleMix(const TypeConvertibleMix&) = default;
    TypeConvertibleMix& operator=(const TypeConvertibleMix&) = default;
};

} // namespace Kova
