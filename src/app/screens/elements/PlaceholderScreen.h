// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "app/screens/elements/Icons.h"

#include <QString>
#include <QWidget>

namespace tonearm {

/// What stands in a place that has nothing to show.
struct PlaceholderContent
{
    IconName icon = IconName::picture;
    QString title;
    QString text;

    bool operator==(const PlaceholderContent &) const = default;
};

/// An icon, a title and a line or two of text in the middle of a free place.
class PlaceholderScreen : public QWidget
{
    Q_OBJECT

public:
    explicit PlaceholderScreen(const PlaceholderContent &content, QWidget *parent = nullptr);
};

} // namespace tonearm
