// SPDX-License-Identifier: MIT
#pragma once

#include "shell/program/OpenedProgram.h"

#include <QByteArray>
#include <QJsonObject>
#include <QProcessEnvironment>
#include <QStringList>
#include <QTemporaryDir>

#include <memory>
#include <utility>
#include <vector>

namespace Kova::Shell::Testing {

/// A directory of source files that goes with the object.
class SourceFolder {
public:
    /// Writes a file, over one of that name. @return its path.
    QString write(const QString& name, const QByteArray& content) const;
    [[nodiscard]] QString path(const QString& name) const { return m_directory.filePath(name); }

private:
    QTemporaryDir m_directory;
};

/// For a test class: a folder that is new for every test.
class FreshFolder {
protected:
    FreshFolder() = default;
    /// To be called from init().
    void renewFolder() { m_folder = std::make_unique<SourceFolder>(); }

    QString write(const QString& name, const QByteArray& content) const { return m_folder->write(name, content); }
    [[nodiscard]] QString path(const QString& name) const { return m_folder->path(name); }
    /// The names of the files in a directory of the folder, hidden ones too, in order.
    [[nodiscard]] QStringList filesIn(const QString& directory) const;

private:
    std::unique_ptr<SourceFolder> m_folder;
};

/// Two procedures, `leaf` and `main`, and two calls, on lines 3 and 4.
inline constexpr auto twoCalls = "static int leaf(int x) { return x; }\n"
                                 "int main(void) {\n"
                                 "    leaf(1);\n"
                                 "    return leaf(2);\n"
                                 "}\n";

/// Two procedures, `leaf` and `main`, and one call, in a loop.
inline constexpr auto callInALoop = "static int leaf(int x) { return x; }\n"
                                    "int main(void) {\n"
                                    "    int i, s = 0;\n"
                                    "    for (i = 0; i < 3; ++i)\n"
                                    "        s += leaf(i);\n"
                                    "    return s;\n"
                                    "}\n";

/// A procedure `f` with a block of each kind, two without braces, and an empty one.
inline constexpr auto blocksOfAllKinds = "int f(int n) {\n"                    // 1
                                         "    for (int i = 0; i < n; ++i) {\n" // 2
                                         "        if (n)\n"                    // 3
                                         "            --n;\n"                  // 4
                                         "        else {\n"                    // 5
                                         "            ++n;\n"                  // 6
                                         "        }\n"                         // 7
                                         "    }\n"                             // 8
                                         "    {\n"                             // 9
                                         "        n = 2;\n"                    // 10
                                         "    }\n"                             // 11
                                         "    if (n) {\n"                      // 12
                                         "        while (n) n--;\n"            // 13
                                         "    }\n"                             // 14
                                         "    {}\n"                            // 15
                                         "    return n;\n"                     // 16
                                         "}\n";                                // 17

/// A procedure `f` with a flow and an anti dependence, and with the input dependence of the bound on itself.
inline constexpr auto threeDependences = "void f(double a[100], double b[100], int n) {\n" // 1
                                         "    for (int i = 1; i < n; i++) {\n"             // 2
                                         "        a[i] = b[i];\n"                          // 3
                                         "        b[i] = a[i - 1];\n"                      // 4
                                         "    }\n"                                         // 5
                                         "}\n";                                            // 6

/// A procedure `f` with a loop that is left, `g` with a loop that tests last and both branches, and `h` without either.
inline constexpr auto loopsAndBranches = "int f(int n) {\n"              // 1
                                         "    int s = 0;\n"              // 2
                                         "    while (n > 0) {\n"         // 3
                                         "        if (n == 5)\n"         // 4
                                         "            break;\n"          // 5
                                         "        s += n--;\n"           // 6
                                         "    }\n"                       // 7
                                         "    return s;\n"               // 8
                                         "}\n"                           // 9
                                         "void g(int n) {\n"             // 10
                                         "    do {\n"                    // 11
                                         "        if (n)\n"              // 12
                                         "            n--;\n"            // 13
                                         "        else\n"                // 14
                                         "            n++;\n"            // 15
                                         "    } while (n != 3);\n"       // 16
                                         "}\n"                           // 17
                                         "int h(int x) { return x; }\n"; // 18

/// A procedure `f` with 2 * branches blocks of expressions.
[[nodiscard]] QByteArray manyBranches(int branches);

/// While it lives there is another program `dot`, and no other program, for this process and those that it starts.
class FakeGraphviz {
public:
    enum class Program { Missing, Failing };

    explicit FakeGraphviz(Program program);
    ~FakeGraphviz();
    FakeGraphviz(const FakeGraphviz&) = delete;
    FakeGraphviz& operator=(const FakeGraphviz&) = delete;

    [[nodiscard]] bool wasRun() const;

private:
    SourceFolder m_folder;
    QByteArray m_path;
};

/// The options that describe the call graph of the files behind them.
extern const QStringList describing;

/// Names and contents.
using SourceFiles = std::vector<std::pair<QString, QByteArray>>;

/// Two files with a procedure `f` each.
extern const SourceFiles staticsOfOneName;

/// Files in a folder of their own, and the program that they make in that order; headers are only written.
struct WrittenProgram {
    explicit WrittenProgram(const SourceFiles& files);
    /// Of one file, `a.c`.
    explicit WrittenProgram(const QByteArray& content) : WrittenProgram(SourceFiles{{"a.c", content}}) {}

    SourceFolder folder;
    OpenedProgram program;
};

/// The names of the files in a directory, hidden ones too, in order.
[[nodiscard]] QStringList filesIn(const QString& directory);

/// The files read with default options.
[[nodiscard]] OpenedProgram readProgram(const QStringList& paths);

[[nodiscard]] QByteArray contentOf(const QString& path);

/// What a run of the real program left behind.
struct Finished {
    /// -1 when it crashed or did not end in time.
    int status = -1;
    QByteArray out;
    QByteArray error;
};

/// The environment of a machine without a display.
[[nodiscard]] QProcessEnvironment withoutDisplay();

/// Runs kova-shell to its end. @param outFile receives standard output when given.
[[nodiscard]] Finished runProgram(const QStringList& arguments, const QString& outFile = QString(),
                                  const QProcessEnvironment& environment = withoutDisplay());

/// The object in a JSON text; one with the key "invalid" when it is none.
[[nodiscard]] QJsonObject parse(const QByteArray& text);

/// A text field of every object in a list of an object: namesIn(list, "subroutines", "name").
[[nodiscard]] QStringList namesIn(const QJsonObject& list, const QString& what, const QString& field);

/// True when every line is of one of the two forms that messages have.
[[nodiscard]] bool hasMessageForm(const QByteArray& error);

/// Where kova-shell is.
[[nodiscard]] QString programPath();

} // namespace Kova::Shell::Testing
