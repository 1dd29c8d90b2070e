// SPDX-License-Identifier: MIT
#pragma once

#include "environment/tessel/TesselBase.h"

#include <string>
#include <utility>

namespace Kova::Tessel {

class Type;

/// Something that has a name, or that stands where names are declared.
class DeclarationBase : public TesselBase {
public:
    /// Empty for what has no name, such as `struct { int x; }`.
    [[nodiscard]] const std::string& getName() const { return m_name; }
    void setName(std::string name) { m_name = std::move(name); }

    /// True for what a system header declares: known to the program, not a part of it.
    [[nodiscard]] bool isExternal() const { return m_external; }
    void setExternal(bool external) { m_external = external; }

    /// Attributes as the source wrote them, such as `__attribute__((noreturn))`; empty without any.
    [[nodiscard]] const std::string& getAttributes() const { return m_attributes; }
    void setAttributes(std::string attributes) { m_attributes = std::move(attributes); }

protected:
    explicit DeclarationBase(std::string name) : m_name(std::move(name)) {}

private:
    std::string m_name;
    std::string m_attributes;
    bool m_external = false;
};

using DeclarationPtr = std::unique_ptr<DeclarationBase>;

/// Where a variable or subroutine lives and who can see it.
enum class StorageClass { None, Static, Extern, Register, Auto, ThreadLocal, StaticThreadLocal, ExternThreadLocal };

} // namespace Kova::Tessel
