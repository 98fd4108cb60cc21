// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "app/screens/elements/Icons.h"

#include <QWidget>

#include <optional>

class QHBoxLayout;

namespace tonearm {

class SelectablePath;

/// A label and a path beside it, which the user can mark and copy. A long path doesn't widen the
/// window: it is shortened, and scrolls in its place while it has the focus.
class PathRow : public QWidget
{
    Q_OBJECT

public:
    explicit PathRow(const QString &label, QWidget *parent = nullptr);

    /// Puts an icon in front of the path. To be called once.
    void addIcon(IconName name);

    /// Without a path the row says that nothing is selected.
    void setPath(const std::optional<QString> &path);

private:
    QHBoxLayout *m_row;
    SelectablePath *m_path;
};

} // namespace tonearm
