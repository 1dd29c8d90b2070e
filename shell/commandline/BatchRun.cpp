// SPDX-License-Identifier: MIT
#include "shell/commandline/BatchRun.h"

#include "environment/tessel/ProgramUnit.h"
#include "shell/commandline/StandardStreams.h"
#include "shell/messages/MessageLog.h"
#include "shell/pictures/Gallery.h"
#include "shell/pictures/Picture.h"
#include "shell/program/PrintedText.h"
#include "shell/program/ProgramListing.h"
#include "shell/program/SourceReader.h"
#include "shell/views/ViewDescription.h"
#include "shell/views/ViewTable.h"
#include "visualization/graphcore/GraphWidgetBase.h"

#include <QJsonDocument>

#include <algorithm>

namespace Kova::Shell {

namespace {

ExitStatus printJson(const QJsonObject& object) {
    return printOut(QJsonDocument(object).toJson()) ? Done : FileFailure;
}

/// A log whose messages are on standard error as well.
class PrintingLog : public MessageLog {
public:
    PrintingLog() {
        connect(this, &MessageLog::messageAppended, this, [](const Message& message) { printMessage(message.text); });
    }
};

} // namespace

ExitStatus BatchRun::run() {
    m_program = SourceReader(m_options.reading).read(m_options.files);
    for (const std::string& line : m_program.getDiagnosticTexts())
        printErrorLine(line);
    ExitStatus status = m_program.hasUnreadableFile() ? FileFailure : Done;
    if (m_options.list)
        status = std::max(status, list());
    if (m_program.isEmpty())
        return status;
    if (m_options.print)
        status = std::max(status, print());
    if (m_options.isAboutOneView())
        status = std::max(status, showView());
    if (!m_options.exportDirectory.isEmpty())
        status = std::max(status, writeGallery());
    return status;
}

ExitStatus BatchRun::list() const {
    return printJson(listProgram(m_program));
}

ExitStatus BatchRun::print() const {
    const FoundSubject found = SubjectFinder(m_program).find(m_options.subject, SubjectPreference());
    if (found.error.isEmpty())
        return printOut(printedTextOf(found.subject)) ? Done : FileFailure;
    printMessage(found.error);
    return WrongUsage;
}

ExitStatus BatchRun::showView() const {
    const ViewKind& kind = *findViewKind(m_options.view);
    const FoundSubject found = SubjectFinder(m_program).find(m_options.subject, kind.preference);
    if (found.error.isEmpty())
        return showSubject(kind, found.subject);
    printMessage(found.error);
    // A program that has nothing of the kind is nobody's mistake.
    return m_options.subject.namesSomething() ? WrongUsage : NothingToShow;
}

ExitStatus BatchRun::showSubject(const ViewKind& kind, const Subject& subject) const {
    PrintingLog log;
    const std::unique_ptr<View> view = kind.create();
    view->show(subject);
    ExitStatus status = view->getWidget().isBuilded() ? Done : NothingToShow;
    // The file first: it shall be there also when nobody reads standard output to its end.
    if (!m_options.exportFile.isEmpty() && view->getWidget().isBuilded()) {
        const QString error = exportPicture(view->getWidget(), m_options.exportFile);
        if (!error.isEmpty()) {
            printMessage(error);
            status = FileFailure;
        }
    }
    if (m_options.describe)
        status = std::max(status, printJson(describeView(kind, *view, subject, log.getMessages())));
    return status;
}

ExitStatus BatchRun::writeGallery() const {
    PrintingLog log;
    Gallery gallery(m_program, m_options.exportDirectory);
    const QStringList failures = gallery.write();
    for (const QString& failure : failures)
        printMessage(failure);
    if (!failures.isEmpty())
        return FileFailure;
    return gallery.getPictureCount() > 0 ? Done : NothingToShow;
}

} // namespace Kova::Shell
