// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "app/screens/mainwindow/DiscBanner.h"
#include "disc/DiscInfo.h"
#include "e2e/ShownWindow.h"
#include "helpers/Await.h"

#include <QLabel>

namespace tonearm::test {

/// A disc of two minutes with two titles.
inline DiscInfo shownDisc(const QString &name)
{
    DiscInfo result;
    result.volumeURL = QUrl::fromLocalFile(QStringLiteral("/media/") + name);
    result.volumeName = name;
    result.discID = QStringLiteral("an-id");
    for (const QString &title : {QStringLiteral("One"), QStringLiteral("Two")}) {
        DiscTrack track;
        track.number = result.tracks.size() + 1;
        track.frameCount = 75 * 60;
        track.title = title;
        result.tracks.append(track);
    }
    return result;
}

/// Whether the offer of a disc has come down to its place in a window.
inline bool isOffered(QWidget &window, const QString &name)
{
    const auto *label = named<QLabel>(window, QStringLiteral("Audio CD detected — ") + name);
    const auto *banner = window.findChild<DiscBanner *>();
    const auto *panel = banner->findChild<QWidget *>({}, Qt::FindDirectChildrenOnly);
    return label && panel->y() == 0 && label->visibleRegion().boundingRect() == label->rect();
}

/// For tests of a window with discs in its machine.
struct DiscWindowTest : WindowTest
{
    /// Puts these discs in, in place of those before, and waits until the model has seen them.
    void put(const QList<DiscInfo> &discs)
    {
        surroundings.discScan().discs = discs;
        model.refreshDiscs();
        ASSERT_TRUE(eventually([&] { return model.detectedDiscs.value() == discs; }));
    }

    /// Loads "The Disc", and closes the sheet that shows its lookup.
    void load()
    {
        model.loadDisc(shownDisc(QStringLiteral("The Disc")));
        ASSERT_TRUE(eventually([this] { return !model.isLoadingReleases.value(); }));
        model.isShowingSearchResults = false;
        ShownWindow::settle();
    }
};

} // namespace tonearm::test
