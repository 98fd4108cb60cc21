// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/screens/mainwindow/ContentView.h"

#include "app/screens/elements/Divider.h"
#include "app/screens/mainwindow/ChapterMappingSection.h"
#include "app/screens/mainwindow/DiscBanner.h"
#include "app/screens/mainwindow/EncodingSection.h"
#include "app/screens/mainwindow/FFmpegBanner.h"
#include "app/screens/mainwindow/FileSelectionSection.h"
#include "app/screens/mainwindow/MetadataSearchSection.h"

#include <QVBoxLayout>

namespace tonearm {

namespace {

constexpr int gap = 12;
constexpr int padding = 16;

} // namespace

ContentView::ContentView(AppModel &model, const GenreCatalog &genres, QWidget *parent)
    : QScrollArea(parent)
{
    auto *column = new QWidget;
    auto *layout = new QVBoxLayout(column);
    layout->setContentsMargins(padding, padding, padding, padding);
    layout->setSpacing(gap);
    layout->addWidget(new FFmpegBanner(model));
    layout->addWidget(new DiscBanner(model));
    layout->addWidget(new FileSelectionSection(model));
    layout->addWidget(new Divider);
    auto *metadata = new MetadataSearchSection(model, genres);
    connect(metadata, &MetadataSearchSection::coverArtRequested, this, &ContentView::coverArtRequested);
    layout->addWidget(metadata);
    layout->addWidget(new Divider);
    layout->addWidget(new ChapterMappingSection(model), 1);
    layout->addWidget(new Divider);
    layout->addWidget(new EncodingSection(model));

    setWidget(column);
    setWidgetResizable(true);
    setFrameShape(QFrame::NoFrame);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    // The sections hold what takes the keyboard; the area itself only scrolls.
    setFocusPolicy(Qt::NoFocus);
}

} // namespace tonearm
