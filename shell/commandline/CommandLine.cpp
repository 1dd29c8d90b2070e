// SPDX-License-Identifier: MIT
#include "shell/commandline/CommandLine.h"

#include "shell/pictures/PictureFormat.h"
#include "shell/program/SourceReader.h"
#include "shell/views/ViewTable.h"

#include <QCommandLineParser>
#include <QFile>

namespace Kova::Shell {

namespace {

/// Options that mean one thing, so that two of them contradict each other. Of --std the last counts, as compilers do.
const QStringList onceOnly = {"view", "function", "line", "export", "export-all"};

QCommandLineOption valued(const QString& name) {
    return QCommandLineOption(name, QString(), "value");
}

QCommandLineOption shortAndValued(const QString& name) {
    QCommandLineOption option = valued(name);
    option.setFlags(QCommandLineOption::ShortOptionStyle);
    return option;
}

void addOptions(QCommandLineParser& parser) {
    for (const QString& name : onceOnly)
        parser.addOption(valued(name));
    parser.addOption(valued("std"));
    parser.addOption(shortAndValued("I"));
    parser.addOption(shortAndValued("D"));
    for (const char* flag : {"describe", "list", "print", "help", "version"})
        parser.addOption(QCommandLineOption(flag));
}

QString firstLineOf(const QString& text) {
    return text.section('\n', 0, 0);
}

/// Options that can hold no value at all, or were given one too many.
QString checkValues(const QCommandLineParser& parser) {
    for (const QString& name : onceOnly) {
        if (parser.values(name).size() > 1)
            return QString("--%1 is given more than once").arg(name);
        if (parser.isSet(name) && parser.value(name).isEmpty())
            return QString("--%1 needs a value").arg(name);
    }
    for (const char* name : {"I", "D"})
        if (parser.values(name).contains(QString()))
            return QString("-%1 needs a value").arg(name);
    return {};
}

QString readLine(const QCommandLineParser& parser, Options& options) {
    if (!parser.isSet("line"))
        return {};
    bool isNumber = false;
    const int line = parser.value("line").toInt(&isNumber);
    if (!isNumber || line < 1)
        return QString("--line takes a line number from 1, not '%1'").arg(parser.value("line"));
    options.subject.line = line;
    return {};
}

std::vector<std::string> toBytes(const QStringList& texts) {
    std::vector<std::string> bytes;
    for (const QString& text : texts)
        bytes.push_back(QFile::encodeName(text).toStdString());
    return bytes;
}

Options readOptions(const QCommandLineParser& parser) {
    Options options;
    options.view = parser.value("view");
    options.subject.function = parser.value("function");
    options.exportFile = parser.value("export");
    options.exportDirectory = parser.value("export-all");
    options.describe = parser.isSet("describe");
    options.list = parser.isSet("list");
    options.print = parser.isSet("print");
    options.reading.includeDirectories = toBytes(parser.values("I"));
    options.reading.definitions = toBytes(parser.values("D"));
    options.reading.standard = parser.value("std").toStdString();
    options.files = parser.positionalArguments();
    return options;
}

/// What makes no sense together.
QString checkTogether(const Options& options) {
    if (!options.view.isEmpty() && findViewKind(options.view) == nullptr)
        return QString("there is no view '%1'; there is %2").arg(options.view, getViewNames().join(", "));
    if (!options.exportFile.isEmpty() && options.view.isEmpty())
        return "--export needs --view";
    if (options.describe && options.view.isEmpty())
        return "--describe needs --view";
    if (static_cast<int>(options.describe) + static_cast<int>(options.list) + static_cast<int>(options.print) > 1)
        return "--describe, --list and --print all print on standard output: give one of them";
    if (!options.exportFile.isEmpty() && !pictureFormatOf(options.exportFile))
        return QString("cannot export to '%1': its suffix is none of %2").arg(options.exportFile, pictureSuffixes());
    const bool hasSubject = !options.subject.function.isEmpty() || options.subject.line;
    const bool isOffered = !options.isBatch() || options.isAboutOneView();
    if (!isOffered && !options.view.isEmpty())
        return "--view goes with --export, --describe or the window";
    if (!isOffered && !options.print && hasSubject)
        return "--function and --line go with --export, --describe, --print or the window";
    if (options.isBatch() && options.files.isEmpty())
        return "there is no file to read";
    return SourceReader(options.reading).checkOptions();
}

/// The list in lines as narrow as those of the help text.
QString wrappedNames(const QStringList& names) {
    constexpr int column = 21;
    constexpr int mostCharacters = 80;
    QStringList lines = {QString(column, ' ')};
    for (const QString& name : names) {
        const QString word = name == names.back() ? name : name + ", ";
        if (lines.back().size() + word.trimmed().size() > mostCharacters)
            lines.append(QString(column, ' '));
        lines.back() += word;
    }
    for (QString& line : lines)
        while (line.endsWith(' '))
            line.chop(1);
    return lines.join('\n');
}

} // namespace

ParsedCommandLine parseCommandLine(const QStringList& arguments) {
    using Outcome = ParsedCommandLine::Outcome;
    QCommandLineParser parser;
    addOptions(parser);
    if (!parser.parse(arguments))
        return {Outcome::Error, firstLineOf(parser.errorText()), {}};
    if (parser.isSet("help"))
        return {Outcome::Help, {}, {}};
    if (parser.isSet("version"))
        return {Outcome::Version, {}, {}};
    Options options = readOptions(parser);
    QString error = checkValues(parser);
    if (error.isEmpty())
        error = readLine(parser, options);
    if (error.isEmpty())
        error = checkTogether(options);
    return {error.isEmpty() ? Outcome::Run : Outcome::Error, error, options};
}

QString helpText() {
    return QString(R"help(Usage: kova-shell [OPTIONS] [FILE...]

Opens a window on the C files, or does without one what the options ask for.

What to look at:
  --view NAME        the view:
%1
  --function NAME    the subroutine to look at; where files have static ones of
                     one name, "NAME (FILE)" singles one out
                     (default: the whole program)
  --line N           the statement that starts on source line N, of --function
                     or of the first subroutine that has one

Without a window:
  --export FILE      write the view to FILE, a picture by its suffix:
                     %2 (PNG for a device without one); needs --view
  --export-all DIR   write every view of everything that it applies to into
                     DIR, as PNG and SVG, with an index.html
  --describe         print the view's nodes and edges as JSON; needs --view
  --print            print the text of the program, of --function or of the
                     statement on --line, as C that compiles
  --list             print the program as JSON: files, subroutines, loops,
                     diagnostics

How to read the files:
  -I DIR             search DIR for headers
  -D NAME[=VALUE]    define a macro
  --std STD          the C standard, such as c99 or gnu89 (default: gnu17)
  --                 what follows are files, whatever it begins with

  --help             print this text
  --version          print the version

Exit status:
  0  done
  1  the view had nothing to show; why is on standard error
  2  wrong usage, or a subroutine or line that the program does not have
  3  a file could not be read or written, or has errors that left nothing
     to look at; the other files are processed all the same
Messages are on standard error as FILE:LINE:COLUMN: TEXT or kova-shell: TEXT.
)help")
        .arg(wrappedNames(getViewNames()), pictureSuffixes());
}

QString versionText() {
    return "kova-shell " KOVA_VERSION "\n";
}

} // namespace Kova::Shell
