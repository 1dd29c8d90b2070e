// SPDX-License-Identifier: MIT
#include "visualization/graphcore/ExchangeFile.h"

#include <array>
#include <cerrno>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace Kova::GUI::GenericGraph {

namespace {

bool isOwnFile(const struct stat& status) {
    return S_ISREG(status.st_mode) && status.st_uid == geteuid() && status.st_nlink == 1;
}

/// Closes itself. Does not wait for whoever would write to a pipe of that name.
class Descriptor {
public:
    Descriptor(const char* path, int flags) : m_number(open(path, flags | O_NOFOLLOW | O_CLOEXEC | O_NONBLOCK, 0600)) {
        struct stat status = {};
        if (m_number >= 0 && (fstat(m_number, &status) != 0 || !isOwnFile(status))) {
            close(m_number);
            m_number = -1;
        }
    }
    ~Descriptor() {
        if (m_number >= 0)
            close(m_number);
    }
    Descriptor(const Descriptor&) = delete;
    Descriptor& operator=(const Descriptor&) = delete;

    [[nodiscard]] bool isOpen() const { return m_number >= 0; }
    [[nodiscard]] int number() const { return m_number; }

private:
    int m_number;
};

} // namespace

bool ExchangeFile::isForeign() const {
    struct stat status = {};
    return lstat(m_path, &status) == 0 && !isOwnFile(status);
}

// Cut off only once it is known to be the user's own.
bool ExchangeFile::write(const std::string& content) const {
    const Descriptor file(m_path, O_WRONLY | O_CREAT);
    if (!file.isOpen() || ftruncate(file.number(), 0) != 0)
        return false;
    std::size_t done = 0;
    while (done < content.size()) {
        const ssize_t count = ::write(file.number(), content.data() + done, content.size() - done);
        if (count < 0 && errno != EINTR)
            return false;
        done += count > 0 ? static_cast<std::size_t>(count) : 0;
    }
    return true;
}

std::optional<std::string> ExchangeFile::read() const {
    const Descriptor file(m_path, O_RDONLY);
    if (!file.isOpen())
        return std::nullopt;
    std::string content;
    std::array<char, 65536> buffer = {};
    for (;;) {
        const ssize_t count = ::read(file.number(), buffer.data(), buffer.size());
        if (count > 0)
            content.append(buffer.data(), static_cast<std::size_t>(count));
        else if (count == 0 || errno != EINTR)
            return content;
    }
}

} // namespace Kova::GUI::GenericGraph
