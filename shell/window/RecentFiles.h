// SPDX-License-Identifier: MIT
#pragma once

#include <QMenu>

class QSettings;

namespace Kova::Shell {

/// The menu of files that were opened last, newest first, kept in the settings. At most 10, by absolute paths.
class RecentFiles : public QMenu {
    Q_OBJECT

public:
    /// @param settings live as long.
    explicit RecentFiles(QSettings& settings, QWidget* parent = nullptr);

    void add(const QStringList& paths);
    void remove(const QString& path);
    [[nodiscard]] QStringList getPaths() const;

Q_SIGNALS:
    void filePicked(const QString& path);

private:
    void store(const QStringList& paths);
    void fill();

    QSettings& m_settings;
};

} // namespace Kova::Shell
