// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QWidget>

class QHBoxLayout;

namespace tonearm {

class AppSettings;

/// The size limit of artwork, with its unit, its stepper and its explanation.
class SizeLimitRow : public QWidget
{
    Q_OBJECT

public:
    explicit SizeLimitRow(AppSettings &settings, QWidget *parent = nullptr);

private:
    void fill(QHBoxLayout *row, AppSettings &settings);
};

} // namespace tonearm
