// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "workflow/AppModel.h"

#include <gtest/gtest.h>

namespace tonearm::test {

/// Puts something into every field that belongs to a source or to what was done with it.
inline void fillLeftovers(AppModel &model)
{
    model.chapters =
        QList<ChapterInfo>{{.originalTitle = QStringLiteral("Old"), .mappedTitle = QStringLiteral("Old")}};
    model.sourceAudio = AudioStreamInfo{.codecName = QStringLiteral("dts")};
    model.selectedRelease = ReleaseInfo{.id = QStringLiteral("old")};
    model.selectedReleaseID = QStringLiteral("old");
    model.encodedFiles = QList{QUrl::fromLocalFile(QStringLiteral("/music/01-Old.flac"))};
    model.lastOutputFolder = QUrl::fromLocalFile(QStringLiteral("/music"));
    model.lastLogURL = QUrl::fromLocalFile(QStringLiteral("/music/old.log"));
    model.encodingProgress = 0.5;
    model.trackVerifications = QMap<qint64, RipVerification>{{1, RipVerification::verified}};
    model.progressMessage = QStringLiteral("Old.");
}

/// Fails the test unless all that is gone that another source takes away, whichever it is.
inline void expectNoLeftovers(const AppModel &model)
{
    EXPECT_FALSE(model.selectedRelease.value());
    EXPECT_FALSE(model.selectedReleaseID.value());
    EXPECT_TRUE(model.encodedFiles.value().isEmpty());
    EXPECT_FALSE(model.lastOutputFolder.value());
    EXPECT_EQ(model.encodingProgress.value(), 0.0);
    EXPECT_TRUE(model.trackVerifications.value().isEmpty());
    EXPECT_FALSE(model.completion.value());
}

/// Puts something into every field that only a finished job takes with it when another source comes.
inline void fillFinishedJob(AppModel &model)
{
    for (QProperty<QString> *field : {&model.artist, &model.albumTitle, &model.albumYear, &model.genre,
                                      &model.discNumber, &model.discTotal})
        *field = QStringLiteral("typed");
    model.searchResults = {ReleaseInfo{.id = QStringLiteral("old")}};
    model.searchNotices = {MetadataSearchOutcome::Notice()};
    PreparedCoverArt cover;
    cover.url = QUrl::fromLocalFile(QStringLiteral("/music/cover.jpg"));
    model.coverArt = cover;
    model.coverArtOrigin = QStringLiteral("Dropped file");
    model.completion = EncodingCompletion();
}

/// Fails the test unless it went.
inline void expectNoFinishedJob(const AppModel &model)
{
    for (const QProperty<QString> *field : {&model.artist, &model.albumTitle, &model.albumYear, &model.genre,
                                            &model.discNumber, &model.discTotal})
        EXPECT_EQ(field->value(), QString());
    EXPECT_TRUE(model.searchResults.value().isEmpty());
    EXPECT_TRUE(model.searchNotices.value().isEmpty());
    EXPECT_FALSE(model.coverArt.value());
    EXPECT_FALSE(model.coverArtOrigin.value());
    EXPECT_FALSE(model.completion.value());
}

} // namespace tonearm::test
