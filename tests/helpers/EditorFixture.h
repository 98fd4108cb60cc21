// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "app/settings/AppSettings.h"
#include "app/settings/SettingsStore.h"
#include "artwork/ArtworkFolder.h"
#include "helpers/FakePanels.h"
#include "helpers/SongFolder.h"
#include "tageditor/MetadataEditorModel.h"

#include <QString>
#include <QStringList>
#include <QTemporaryDir>
#include <QUrl>

#include <chrono>
#include <memory>

namespace tonearm {

// GoogleTest's name.
void PrintTo(const EditorArtworkState &state, std::ostream *out); // NOLINT(readability-identifier-naming)
void PrintTo(const CommonValue &value, std::ostream *out);        // NOLINT(readability-identifier-naming)

} // namespace tonearm

namespace tonearm::test {

/// The tag editor's model in surroundings of its own: a folder for songs, settings, a short list of default
/// genres ("Jazz", "Rock"), and panels that the test plays.
class EditorFixture
{
public:
    explicit EditorFixture(const ToolLocation &tools = shippedTools(),
                           std::chrono::milliseconds artworkDelay = std::chrono::milliseconds(1));
    ~EditorFixture();
    EditorFixture(const EditorFixture &) = delete;
    EditorFixture &operator=(const EditorFixture &) = delete;

    MetadataEditorModel &model() { return *m_model; }

    /// Destroys the model before its surroundings.
    void dropModel() { m_model.reset(); }

    AppSettings &settings() { return m_settings; }

    FakePanels &panels() { return m_panels; }

    const GenreCatalog &genres() const { return m_genres; }

    const SongFolder &songs() const { return m_songs; }

    /// A place outside of the folder for songs.
    QString path(const QString &name) const { return m_folder.filePath(name); }

    QUrl url(const QString &name) const { return QUrl::fromLocalFile(path(name)); }

    /// A JPEG of noise, which is large for its size in pixels; of one seed it is always the same.
    QUrl makeNoise(const QString &name, int side, quint32 seed = 7) const;

    /// Puts rows into the model's table as a load would, readable ones selected.
    void show(const QList<EditableAudioFile> &rows);

    // These run the event loop until the work that they start has ended, and fail the test if it doesn't.

    void open(const QUrl &folder);

    /// Opens the folder of songs.
    void open() { open(m_songs.url()); }

    void waitForArtwork();
    void save();
    void waitForSave();

    /// The row of a file in the folder of songs.
    EditableAudioFile row(const QString &name) const;

    void select(const QStringList &names);

    /// The file names of the rows, in their order.
    QStringList names() const;

private:
    QTemporaryDir m_folder;
    SongFolder m_songs;
    SettingsStore m_store;
    AppSettings m_settings;
    FakePanels m_panels;
    GenreCatalog m_genres;
    std::unique_ptr<MetadataEditorModel> m_model;
};

/// A row that stands for no file.
EditableAudioFile rowOf(const QString &name, const AudioFileTags &tags = {});

/// Tags that hold one value.
AudioFileTags tagsWith(EditableTagField field, const QString &value);

/// A file's size as captions tell it.
QString byteCountOf(const QUrl &file);

/// What a song is tagged with, for SongFolder::makeSong().
QStringList tagList(const QString &disc, const QString &position, const QString &artist);

} // namespace tonearm::test
