// SPDX-License-Identifier: MIT
#include "shell/messages/MessageLog.h"

#include "environment/core/Console.h"

#include <memory>

namespace Kova::Shell {

namespace {

class LogConsole final : public Console {
public:
    LogConsole(MessageLog& log, std::string tag) : m_log(log), m_tag(std::move(tag)) {}

    void log(int level, const std::string& text) override {
        m_log.append({QString::fromStdString(m_tag), level, QString::fromStdString(text)});
    }

private:
    MessageLog& m_log;
    std::string m_tag;
};

} // namespace

MessageLog::MessageLog(QObject* parent) : QObject(parent) {
    setConsoleFactory([this](const std::string& tag, bool) { return std::make_unique<LogConsole>(*this, tag); });
}

MessageLog::~MessageLog() {
    setConsoleFactory({});
}

void MessageLog::append(const Message& message) {
    m_messages.push_back(message);
    Q_EMIT messageAppended(message);
}

} // namespace Kova::Shell
