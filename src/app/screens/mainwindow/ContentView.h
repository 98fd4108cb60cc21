// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QScrollArea>

namespace tonearm {

class AppModel;
class GenreCatalog;

/// The one scrolling column of the main window: banners, and below them the four sections that lead
/// from a source to tagged FLAC files.
class ContentView : public QScrollArea
{
    Q_OBJECT

public:
    ContentView(AppModel &model, const GenreCatalog &genres, QWidget *parent = nullptr);

Q_SIGNALS:
    /// The user wants to see the cover in its window.
    void coverArtRequested();
};

} // namespace tonearm
