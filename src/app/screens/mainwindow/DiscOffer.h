// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "disc/DiscInfo.h"

#include <QWidget>

namespace tonearm {

class AppModel;

/// An audio CD that can be loaded or ejected.
class DiscOffer : public QWidget
{
    Q_OBJECT

public:
    DiscOffer(AppModel &model, const DiscInfo &disc, QWidget *parent = nullptr);
};

} // namespace tonearm
