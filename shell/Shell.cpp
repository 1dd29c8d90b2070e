// SPDX-License-Identifier: MIT
#include "shell/Shell.h"

#include "shell/ShellApplication.h"
#include "shell/commandline/BatchRun.h"
#include "shell/commandline/CommandLine.h"
#include "shell/commandline/Platform.h"
#include "shell/commandline/StandardStreams.h"
#include "shell/window/MainWindow.h"

#include <QFile>
#include <QSettings>
#include <QTextCodec>

#include <array>

namespace Kova::Shell {

namespace {

QStringList decode(int argc, char** argv) {
    QStringList arguments;
    for (int i = 0; i < argc; ++i)
        arguments.append(QFile::decodeName(argv[i]));
    return arguments;
}

/// What Qt has to say reads like our own messages. It complains of a missing XDG_RUNTIME_DIR, which bare machines do
/// not have and which nothing here needs.
void printQtMessage(QtMsgType type, const QMessageLogContext& /*context*/, const QString& text) {
    if (type != QtDebugMsg && type != QtInfoMsg && !text.contains("XDG_RUNTIME_DIR"))
        printMessage(text);
}

ExitStatus runWindow(const Options& options, const ShellApplication& application) {
    QSettings settings;
    MainWindow window(settings, options.reading);
    QObject::connect(&application, &ShellApplication::exceptionCaught, &window, &MainWindow::reportFailure);
    window.show();
    const ExitStatus status = window.start(options);
    if (status == WrongUsage)
        return status;
    return ShellApplication::exec() == 0 ? status : FileFailure;
}

ExitStatus runApplication(const Options& options, char* programName) {
    choosePlatform(!options.isBatch());
    int argc = 1;
    std::array<char*, 2> argv = {programName, nullptr};
    const ShellApplication application(argc, argv.data());
    if (options.isBatch())
        return BatchRun(options).run();
    if (!isWithoutDisplay())
        return runWindow(options, application);
    printMessage("there is no display for the window; --export, --export-all, --describe and --list need none");
    return WrongUsage;
}

} // namespace

ExitStatus runShell(int argc, char** argv) {
    // File names are UTF-8 whatever the locale says: a bare machine has the locale "C", which has ASCII only.
    QTextCodec::setCodecForLocale(QTextCodec::codecForName("UTF-8"));
    qInstallMessageHandler(&printQtMessage);
    const ParsedCommandLine parsed = parseCommandLine(decode(argc, argv));
    switch (parsed.outcome) {
    case ParsedCommandLine::Outcome::Help:
        return printOut(helpText().toUtf8()) ? Done : FileFailure;
    case ParsedCommandLine::Outcome::Version:
        return printOut(versionText().toUtf8()) ? Done : FileFailure;
    case ParsedCommandLine::Outcome::Error:
        printMessage(parsed.error);
        printMessage("try --help");
        return WrongUsage;
    case ParsedCommandLine::Outcome::Run:
        break;
    }
    return runApplication(parsed.options, argv[0]);
}

} // namespace Kova::Shell
