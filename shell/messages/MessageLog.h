// SPDX-License-Identifier: MIT
#pragma once

#include <QObject>
#include <QString>

#include <vector>

namespace Kova::Shell {

/// A line that a view or an analysis wrote to its console.
struct Message {
    QString tag;
    int level = 0;
    QString text;
};

/// Collects what is written to the environment's consoles while it lives, of all tags, in the order of writing. There
/// must be one at a time.
class MessageLog : public QObject {
    Q_OBJECT

public:
    explicit MessageLog(QObject* parent = nullptr);
    ~MessageLog() override;

    [[nodiscard]] const std::vector<Message>& getMessages() const { return m_messages; }
    void append(const Message& message);
    void clear() { m_messages.clear(); }

Q_SIGNALS:
    void messageAppended(const Kova::Shell::Message& message);

private:
    std::vector<Message> m_messages;
};

} // namespace Kova::Shell
