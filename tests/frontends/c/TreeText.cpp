// SPDX-License-Identifier: MIT
#include "tests/frontends/c/TreeText.h"

#include "environment/tessel/AssignmentExpression.h"
#include "environment/tessel/BaseVisitor.h"
#include "environment/tessel/BinaryExpression.h"
#include "environment/tessel/BreakStatement.h"
#include "environment/tessel/CaseStatement.h"
#include "environment/tessel/CastExpression.h"
#include "environment/tessel/CompoundLiteralExpression.h"
#include "environment/tessel/ConditionalExpression.h"
#include "environment/tessel/ContinueStatement.h"
#include "environment/tessel/DeclarationStatement.h"
#include "environment/tessel/DesignatedInitializerExpression.h"
#include "environment/tessel/DoWhileStatement.h"
#include "environment/tessel/EnumDeclaration.h"
#include "environment/tessel/EnumeratorReference.h"
#include "environment/tessel/ExpressionStatement.h"
#include "environment/tessel/FieldDeclaration.h"
#include "environment/tessel/ForStatement.h"
#include "environment/tessel/GenericSelectionExpression.h"
#include "environment/tessel/GotoStatement.h"
#include "environment/tessel/IfStatement.h"
#include "environment/tessel/InitializerListExpression.h"
#include "environment/tessel/LabelAddressExpression.h"
#include "environment/tessel/LabelStatement.h"
#include "environment/tessel/LiteralExpression.h"
#include "environment/tessel/MemberExpression.h"
#include "environment/tessel/NullStatement.h"
#include "environment/tessel/OpaqueDeclaration.h"
#include "environment/tessel/OpaqueExpression.h"
#include "environment/tessel/OpaqueStatement.h"
#include "environment/tessel/ProgramUnit.h"
#include "environment/tessel/RecordDeclaration.h"
#include "environment/tessel/ReturnStatement.h"
#include "environment/tessel/StatementExpression.h"
#include "environment/tessel/SubroutineCallExpression.h"
#include "environment/tessel/SubroutineDeclaration.h"
#include "environment/tessel/SubroutineReference.h"
#include "environment/tessel/SubscriptExpression.h"
#include "environment/tessel/SwitchStatement.h"
#include "environment/tessel/TypeQueryExpression.h"
#include "environment/tessel/TypedefDeclaration.h"
#include "environment/tessel/UnaryExpression.h"
#include "environment/tessel/VariableReference.h"
#include "environment/tessel/VariadicArgumentExpression.h"
#include "environment/tessel/WhileStatement.h"

namespace Kova::Test {

using namespace Tessel;

namespace {

// In the order of the enumerations.
const char* const unaryNames[] = {
    "+_", "-_", "!", "~", "*", "&", "++_", "--_", "_++", "_--", "__real__", "__imag__", "__extension__"};
const char* const binaryNames[] = {
    "*", "/", "%", "+", "-", "<<", ">>", "<", ">", "<=", ">=", "==", "!=", "&", "^", "|", "&&", "||", ",", "**"};
const char* const storageNames[] = {"",      "static ", "extern ",        "register ",
                                    "auto ", "thread ", "static thread ", "extern thread "};

template <class Enumeration>
std::size_t number(Enumeration value) {
    return static_cast<std::size_t>(value);
}

class Writer : public BaseVisitor {
public:
    using BaseVisitor::visit;

    [[nodiscard]] const std::string& text() const { return m_text; }

    void write(const TesselBase* node) {
        if (node == nullptr)
            m_text += '_';
        else
            const_cast<TesselBase*>(node)->accept(*this);
    }

    // Expressions.
    void visit(TesselBase& node) override { m_text += std::string("<unexpected ") + typeid(node).name() + '>'; }
    void visit(VariableReference& node) override { m_text += node.getVariable().getName(); }
    void visit(SubroutineReference& node) override { m_text += '@' + node.getSubroutine().getName(); }
    void visit(EnumeratorReference& node) override { m_text += '#' + node.getEnumerator().getName(); }
    void visit(LiteralExpression& node) override { m_text += node.getText(); }
    void visit(UnaryExpression& node) override { list(unaryNames[number(node.getOperator())], node); }
    void visit(BinaryExpression& node) override { list(binaryNames[number(node.getOperator())], node); }
    void visit(AssignmentExpression& node) override {
        list((node.isCompound() ? binaryNames[number(*node.getOperator())] : std::string()) + '=', node);
    }
    void visit(ConditionalExpression& node) override { list("?", node); }
    void visit(CastExpression& node) override { list("cast " + typeText(node.getType()), node); }
    void visit(SubscriptExpression& node) override { list("[]", node); }
    void visit(MemberExpression& node) override {
        m_text += node.getAccess() == MemberExpression::Access::Direct ? "(. " : "(-> ";
        write(node.getBase());
        m_text += ' ' + node.getField().getName() + ')';
    }
    void visit(SubroutineCallExpression& node) override { list("call", node); }
    void visit(TypeQueryExpression& node) override {
        const std::string name = node.getQuery() == TypeQueryExpression::Query::SizeOf ? "sizeof" : "alignof";
        list(node.getOperand() != nullptr ? name : name + " <" + typeText(node.getQueriedType()) + '>', node, true);
    }
    void visit(InitializerListExpression& node) override { list("init", node); }
    void visit(DesignatedInitializerExpression& node) override {
        m_text += "(designated ";
        std::size_t index = 0;
        for (const auto& designator : node.getDesignators()) {
            using Kind = DesignatedInitializerExpression::Designator::Kind;
            if (designator.kind == Kind::Field) {
                m_text += '.' + designator.field;
                continue;
            }
            m_text += '[';
            write(node.getIndex(index++));
            if (designator.kind == Kind::IndexRange) {
                m_text += "...";
                write(node.getIndex(index++));
            }
            m_text += ']';
        }
        m_text += ' ';
        write(node.getValue());
        m_text += ')';
    }
    void visit(CompoundLiteralExpression& node) override {
        list("literal <" + typeText(node.getType()) + '>' + (node.isLengthLeftOut() ? " []" : ""), node);
    }
    void visit(GenericSelectionExpression& node) override {
        m_text += "(generic ";
        write(node.getControl());
        for (std::size_t i = 0; i < node.getAssociationCount(); ++i) {
            const Type* type = node.getAssociationType(i);
            m_text += i == node.getChosen() ? " *" : " ";
            m_text += (type != nullptr ? typeText(type) : "default") + ':';
            write(node.getAssociationValue(i));
        }
        m_text += ')';
    }
    void visit(StatementExpression& node) override {
        m_text += "({\n";
        children(*node.getBlock());
        m_text += std::string(m_depth * 2, ' ') + "})";
    }
    void visit(VariadicArgumentExpression& node) override {
        list((node.isBuiltin() ? "builtin va_arg <" : "va_arg <") + typeText(node.getType()) + '>', node);
    }
    void visit(LabelAddressExpression& node) override { m_text += "&&" + node.getLabelName(); }
    void visit(OpaqueExpression& node) override { list("opaque `" + node.getText() + '`', node); }

    // Statements.
    void visit(BlockStatement& node) override {
        line("block");
        children(node);
    }
    void visit(ExpressionStatement& node) override { line("", node.getExpression()); }
    void visit(DeclarationStatement& node) override {
        line("declare");
        children(node);
    }
    void visit(IfStatement& node) override {
        line("if ", node.getCondition());
        children(*node.getThenBlock());
        if (node.getElseBlock() != nullptr) {
            line("else");
            children(*node.getElseBlock());
        }
    }
    void visit(SwitchStatement& node) override {
        line("switch ", node.getSelector());
        children(*node.getBody());
    }
    void visit(CaseStatement& node) override {
        begin(node.isDefault() ? "default" : "case ");
        if (!node.isDefault())
            write(node.getValue());
        if (node.getLastValue() != nullptr) {
            m_text += "...";
            write(node.getLastValue());
        }
        m_text += '\n';
    }
    void visit(LabelStatement& node) override { line("label " + node.getName()); }
    void visit(GotoStatement& node) override {
        if (node.getAddress() != nullptr)
            line("goto *", node.getAddress());
        else
            line("goto " + node.getLabelName() + (node.getLabel() != nullptr ? "" : " (nowhere)"));
    }
    void visit(BreakStatement&) override { line("break"); }
    void visit(ContinueStatement&) override { line("continue"); }
    void visit(ReturnStatement& node) override { line("return ", node.getValue()); }
    void visit(NullStatement&) override { line("null"); }
    void visit(OpaqueStatement& node) override {
        begin("opaque `" + node.getText() + '`');
        operands(node);
        m_text += '\n';
    }
    void visit(ForStatement& node) override {
        line("for");
        ++m_depth;
        if (node.getInitialization() != nullptr)
            write(node.getInitialization());
        else
            line("_");
        line("", node.getCondition());
        line("", node.getIncrement());
        --m_depth;
        line("do");
        children(*node.getBody());
    }
    void visit(WhileStatement& node) override {
        line("while ", node.getCondition());
        children(*node.getBody());
    }
    void visit(DoWhileStatement& node) override {
        line("do");
        children(*node.getBody());
        line("while ", node.getCondition());
    }

    // Declarations.
    void visit(ProgramUnit& node) override { children(node); }
    void visit(TranslationUnit& node) override {
        line("unit");
        children(node);
    }
    void visit(SubroutineDeclaration& node) override {
        begin(std::string(node.isExternal() ? "external " : "") + storageNames[number(node.getStorageClass())] +
              (node.isInline() ? "inline " : "") + (node.isNoReturn() ? "noreturn " : "") + "function " +
              node.getName() + ' ' + typeText(node.getType()));
        end(node);
        ++m_depth;
        for (std::size_t i = 0; i < node.getParameterCount(); ++i)
            write(node.getParameter(i));
        --m_depth;
        if (node.hasImplementation())
            write(node.getBody());
    }
    void visit(VariableDeclaration& node) override {
        begin(std::string(node.isExternal() ? "external " : "") + storageNames[number(node.getStorageClass())] +
              (node.isParameter() ? "parameter " : "variable ") + node.getName() + ' ' + typeText(node.getType()));
        if (!node.getBracketWords().empty() || node.isLengthLeftOut())
            m_text += " [" + node.getBracketWords() + ']';
        if (node.getInitializer() != nullptr) {
            m_text += " = ";
            write(node.getInitializer());
        }
        end(node);
    }
    void visit(FieldDeclaration& node) override {
        begin("field " + node.getName() + ' ' + typeText(node.getType()));
        if (node.getBitWidth() != nullptr) {
            m_text += " : ";
            write(node.getBitWidth());
        }
        end(node);
    }
    void visit(EnumeratorDeclaration& node) override {
        begin("enumerator " + node.getName() + ' ' + std::to_string(node.getValue()));
        if (node.getExpression() != nullptr) {
            m_text += " = ";
            write(node.getExpression());
        }
        end(node);
    }
    void visit(OpaqueDeclaration& node) override { line("opaque `" + node.getText() + '`'); }
    void visit(RecordDeclaration& node) override {
        begin(std::string(node.isExternal() ? "external " : "") +
              (node.getKind() == RecordDeclaration::Kind::Struct ? "struct " : "union ") + node.getName() +
              (node.getPacking() != 0 ? " packed to " + std::to_string(node.getPacking()) : "") +
              (node.isComplete() ? "" : " (mention)"));
        end(node);
        children(node);
    }
    void visit(EnumDeclaration& node) override {
        begin("enum " + node.getName() + (node.isComplete() ? "" : " (mention)"));
        end(node);
        children(node);
    }
    void visit(TypedefDeclaration& node) override {
        begin("typedef " + node.getName() + ' ' + typeText(node.getType()));
        end(node);
    }

private:
    void begin(const std::string& text) { m_text += std::string(m_depth * 2, ' ') + text; }
    void end(const DeclarationBase& node) {
        m_text += (node.getAttributes().empty() ? "" : ' ' + node.getAttributes()) + '\n';
    }
    void line(const std::string& text) {
        begin(text);
        m_text += '\n';
    }
    void line(const std::string& text, const TesselBase* expression) {
        begin(text);
        write(expression);
        m_text += '\n';
    }
    void list(const std::string& head, const TesselBase& node, bool skipMissing = false) {
        m_text += '(' + head;
        operands(node, skipMissing);
        m_text += ')';
    }
    void operands(const TesselBase& node, bool skipMissing = false) {
        for (std::size_t i = 0; i < node.getChildCount(); ++i) {
            if (skipMissing && node.getChild(i) == nullptr)
                continue;
            m_text += ' ';
            write(node.getChild(i));
        }
    }
    void children(const TesselBase& node) {
        ++m_depth;
        for (std::size_t i = 0; i < node.getChildCount(); ++i)
            write(node.getChild(i));
        --m_depth;
    }

    std::string m_text;
    std::size_t m_depth = 0;
};

std::string qualified(const Type& type, const std::string& text) {
    static const char* const names[] = {"const ", "volatile ", "restrict ", "atomic "};
    std::string result;
    for (unsigned bit = 0; bit < 4; ++bit)
        if ((type.getQualifiers() & (1u << bit)) != 0)
            result += names[bit];
    return result + text;
}

std::string dimensionText(const ArrayDimension& dimension) {
    switch (dimension.kind) {
    case ArrayDimension::Extent::Constant:
        return std::to_string(dimension.extent);
    case ArrayDimension::Extent::Variable:
        return dimension.upperBound != nullptr ? treeText(*dimension.upperBound) : "?";
    case ArrayDimension::Extent::Unspecified:
        break;
    }
    return {};
}

std::string functionText(const FunctionType& type) {
    std::string result = "fn(";
    for (const Type* parameter : type.getParameters())
        result += (result.back() == '(' ? "" : ",") + typeText(parameter);
    if (type.getParametersKind() == FunctionType::Parameters::Variadic)
        result += ",...";
    if (type.getParametersKind() == FunctionType::Parameters::Unspecified)
        result += '?';
    return result + ")->" + typeText(type.getResult());
}

std::string declaredText(const TypeDeclaration& declaration) {
    const std::string name = declaration.getName().empty() ? "<unnamed>" : declaration.getName();
    if (const auto* record = dynamic_cast<const RecordDeclaration*>(&declaration))
        return (record->getKind() == RecordDeclaration::Kind::Struct ? "struct " : "union ") + name;
    return (dynamic_cast<const EnumDeclaration*>(&declaration) != nullptr ? "enum " : "") + name;
}

std::string bareText(const Type& type) {
    switch (type.getKind()) {
    case Type::Kind::Basic:
        return static_cast<const BasicType&>(type).getName();
    case Type::Kind::Pointer:
        return "ptr(" + typeText(static_cast<const PointerType&>(type).getPointee()) + ')';
    case Type::Kind::Array: {
        const auto& array = static_cast<const ArrayType&>(type);
        return "array[" + dimensionText(array.getDimensions().front()) + "](" + typeText(array.getElement()) + ')';
    }
    case Type::Kind::Function:
        return functionText(static_cast<const FunctionType&>(type));
    case Type::Kind::Declared:
        return declaredText(static_cast<const DeclaredType&>(type).getDeclaration());
    case Type::Kind::Opaque:
        break;
    }
    return '`' + static_cast<const OpaqueType&>(type).getText() + '`';
}

} // namespace

std::string treeText(const TesselBase& node) {
    Writer writer;
    writer.write(&node);
    return writer.text();
}

std::string typeText(const Type* type) {
    return type != nullptr ? qualified(*type, bareText(*type)) : "?";
}

} // namespace Kova::Test
