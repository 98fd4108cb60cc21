// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "app/screens/elements/ArtworkWindow.h"

namespace tonearm {

class ArtworkViewer;

/// The artwork that the tag editor was last asked for, in its own size.
class ArtworkViewerWindow : public ArtworkWindow
{
    Q_OBJECT

public:
    explicit ArtworkViewerWindow(ArtworkViewer &viewer);
};

} // namespace tonearm
