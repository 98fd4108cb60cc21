// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "helpers/Media.h"

#include <QByteArray>
#include <QList>
#include <QString>
#include <QStringList>

namespace tonearm::test {

/// A source by a recipe. Tests that name the same source share the file, which goes with the program,
/// and must not change it.
QString sharedSource(const QString &name, const MediaRecipe &recipe);

/// Two chapters of a stereo FLAC, "One" and "Two", a second each.
QString plainSource();

/// What the system's ffmpeg makes of a piece of a source when it is run by hand: decoded samples.
QByteArray bareCut(const QString &source, const ChapterMark &piece);

/// The tags of a FLAC file but for the encoder's name, sorted. Fails the test unless that is there once.
QStringList tagsWithoutEncoder(const QString &path);

/// How many samples a FLAC file holds, on each channel.
qint64 sampleCount(const QString &path);

} // namespace tonearm::test
