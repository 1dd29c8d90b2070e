// SPDX-License-Identifier: MIT
#include "shell/window/RecentFiles.h"

#include <QFileInfo>
#include <QSettings>

namespace Kova::Shell {

namespace {

constexpr int mostFiles = 10;
constexpr auto key = "recentFiles";

} // namespace

RecentFiles::RecentFiles(QSettings& settings, QWidget* parent) : QMenu(parent), m_settings(settings) {
    setTitle(tr("&Recent Files"));
    fill();
}

QStringList RecentFiles::getPaths() const {
    return m_settings.value(key).toStringList();
}

void RecentFiles::add(const QStringList& paths) {
    QStringList all;
    for (const QString& path : paths)
        all.append(QFileInfo(path).absoluteFilePath());
    all += getPaths();
    all.removeDuplicates();
    store(all.mid(0, mostFiles));
}

void RecentFiles::remove(const QString& path) {
    QStringList all = getPaths();
    all.removeAll(QFileInfo(path).absoluteFilePath());
    store(all);
}

void RecentFiles::store(const QStringList& paths) {
    m_settings.setValue(key, paths);
    fill();
}

void RecentFiles::fill() {
    clear();
    int number = 1;
    for (const QString& path : getPaths()) {
        // An ampersand in a name is no mark of a shortcut.
        const QString name = QString(path).replace('&', "&&");
        QAction* action = addAction(QString("&%1  %2").arg(number++ % mostFiles).arg(name));
        connect(action, &QAction::triggered, this, [this, path] { Q_EMIT filePicked(path); });
    }
    setEnabled(!isEmpty());
}

} // namespace Kova::Shell
