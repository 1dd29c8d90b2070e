// SPDX-License-Identifier: MIT
#include "environment/tessel/types/TypeTable.h"

#include <utility>

namespace Kova::Tessel {

namespace {

/// Collects what tells one type from another as bytes.
class Key {
public:
    Key(Type::Kind kind, std::uint8_t qualifiers) {
        m_text += static_cast<char>('A' + static_cast<int>(kind));
        m_text += static_cast<char>(qualifiers);
    }

    template <class T>
    Key& add(const T& value) {
        static_assert(std::is_trivially_copyable_v<T>);
        // NOLINTNEXTLINE(bugprone-sizeof-expression): of a pointer its own bytes are the key.
        m_text.append(reinterpret_cast<const char*>(&value), sizeof value);
        return *this;
    }
    Key& add(const std::string& text) {
        m_text += text;
        return *this;
    }

    [[nodiscard]] const std::string& text() const { return m_text; }

private:
    std::string m_text;
};

} // namespace

template <class T, class... Arguments>
const T* TypeTable::obtain(const std::string& key, Arguments&&... arguments) {
    std::unique_ptr<const Type>& type = m_types[key];
    if (!type)
        type = std::make_unique<const T>(std::forward<Arguments>(arguments)...);
    return static_cast<const T*>(type.get());
}

const BasicType* TypeTable::basic(const std::string& name, BasicType::Category category, unsigned bits,
                                  std::uint8_t qualifiers) {
    const Key key = Key(Type::Kind::Basic, qualifiers).add(category).add(bits).add(name);
    return obtain<BasicType>(key.text(), name, category, bits, qualifiers);
}

const PointerType* TypeTable::pointer(const Type* pointee, std::uint8_t qualifiers) {
    const Key key = Key(Type::Kind::Pointer, qualifiers).add(pointee);
    return obtain<PointerType>(key.text(), pointee, qualifiers);
}

const ArrayType* TypeTable::array(const Type* element, std::vector<ArrayDimension> dimensions,
                                  std::uint8_t qualifiers) {
    Key key = Key(Type::Kind::Array, qualifiers).add(element);
    for (const ArrayDimension& d : dimensions)
        key.add(d.kind).add(d.extent).add(d.lower).add(d.lowerBound).add(d.upperBound);
    return obtain<ArrayType>(key.text(), element, std::move(dimensions), qualifiers);
}

const FunctionType* TypeTable::function(const Type* result, std::vector<const Type*> parameters,
                                        FunctionType::Parameters kind) {
    Key key = Key(Type::Kind::Function, Type::NoQualifier).add(kind).add(result);
    for (const Type* parameter : parameters)
        key.add(parameter);
    return obtain<FunctionType>(key.text(), result, std::move(parameters), kind);
}

const DeclaredType* TypeTable::declared(const TypeDeclaration& declaration, std::uint8_t qualifiers) {
    const Key key = Key(Type::Kind::Declared, qualifiers).add(&declaration);
    return obtain<DeclaredType>(key.text(), declaration, qualifiers);
}

const OpaqueType* TypeTable::opaque(const std::string& text, std::uint8_t qualifiers) {
    const Key key = Key(Type::Kind::Opaque, qualifiers).add(text);
    return obtain<OpaqueType>(key.text(), text, qualifiers);
}

} // namespace Kova::Tessel
