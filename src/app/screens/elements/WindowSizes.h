// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "app/screens/elements/WindowSizesFile.h"

#include <QHash>
#include <QObject>
#include <QString>
#include <QThreadPool>

class QWidget;

namespace tonearm {

/// The sizes that windows had when they were last closed, in this run or an earlier one. Where a window
/// stands is left to the desktop. Has to outlive the windows.
class WindowSizes : public QObject
{
    Q_OBJECT

public:
    /// `path` is the file they are kept in.
    explicit WindowSizes(const QString &path);

    /// Waits until what was to be kept is written.
    ~WindowSizes() override;

    /// Gives a window its last size, if one is known under the id, as far as the screen has room for it;
    /// and keeps the size that it has when it is closed. For a window with its default size, before it
    /// is shown.
    void follow(QWidget &window, const QString &id);

    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    void restore(QWidget &window, const KeptWindowSize &kept);
    void keep(const QWidget &window, const QString &id);

    QString m_path;
    QHash<QString, KeptWindowSize> m_sizes;
    QHash<QObject *, QString> m_ids;
    // One file after the other.
    QThreadPool m_writer;
};

} // namespace tonearm
