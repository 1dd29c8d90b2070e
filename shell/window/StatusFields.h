// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

class QLabel;
class QStatusBar;

namespace Kova::Shell {

/// The permanent fields of a status bar: subject, what is shown of it, number of files, zoom.
class StatusFields {
public:
    /// The labels become children of the bar.
    explicit StatusFields(QStatusBar& bar);

    void setSubject(const QString& title);
    void setSummary(const QString& summary);
    /// Hides the field for 0.
    void setFileCount(int count);
    /// 1.0 is 100 %.
    void setScale(double scale);
    void hideScale();

private:
    QLabel* m_subject;
    QLabel* m_summary;
    QLabel* m_files;
    QLabel* m_scale;
};

} // namespace Kova::Shell
