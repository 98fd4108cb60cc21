// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "app/screens/elements/ArtworkWindow.h"

namespace tonearm {

class AppModel;

/// The job's cover in its own size.
class CoverArtWindow : public ArtworkWindow
{
    Q_OBJECT

public:
    explicit CoverArtWindow(AppModel &model);
};

} // namespace tonearm
