// SPDX-License-Identifier: GPL-3.0-or-later
#include "helpers/EditorFixture.h"

#include "artwork/ByteCountText.h"
#include "helpers/Await.h"
#include "helpers/Contents.h"
#include "support/PathText.h"

#include <gtest/gtest.h>

#include <QDir>
#include <QFileInfo>
#include <QImage>
#include <QRandomGenerator>

#include <algorithm>

namespace tonearm {

void PrintTo(const EditorArtworkState &state, std::ostream *out)
{
    *out << "state " << int(state.kind) << " \"" << state.text.toStdString() << "\" " << state.picture.width()
         << " x " << state.picture.height();
}

void PrintTo(const CommonValue &value, std::ostream *out)
{
    *out << "value " << int(value.kind) << " \"" << value.text.toStdString() << '"';
}

} // namespace tonearm

namespace tonearm::test {

using namespace Qt::StringLiterals;

EditorFixture::EditorFixture(const ToolLocation &tools, std::chrono::milliseconds artworkDelay)
    : m_songs(tools)
    , m_store(path(u"settings.json"_s))
    , m_settings(m_store)
    , m_genres(path(u"genres.json"_s))
{
    writeFile(path(u"genres.json"_s), R"([{"name": "Jazz"}, {"name": "Rock"}])");
    const QString temporaryBase = QDir::cleanPath(m_songs.path(u"../tmp"_s));
    m_model = std::make_unique<MetadataEditorModel>(
        m_settings,
        MetadataEditorModel::Services{.tools = tools,
                                      .tagService = m_songs.service(),
                                      .artworkFolder = std::make_shared<ArtworkFolder>(temporaryBase),
                                      .genres = m_genres,
                                      .panels = m_panels,
                                      .artworkDelay = artworkDelay});
}

EditorFixture::~EditorFixture()
{
    dropModel();
}

QUrl EditorFixture::makeNoise(const QString &name, int side, quint32 seed) const
{
    QImage image(side, side, QImage::Format_RGB32);
    QRandomGenerator random(seed);
    for (int y = 0; y < side; ++y)
        for (int x = 0; x < side; ++x)
            image.setPixel(x, y, random.generate());
    EXPECT_TRUE(image.save(path(name), "JPEG"));
    return url(name);
}

void EditorFixture::show(const QList<EditableAudioFile> &rows)
{
    m_model->files = rows;
    QSet<QUrl> all;
    for (const EditableAudioFile &shown : rows)
        all.insert(shown.url);
    m_model->setSelection(all);
}

void EditorFixture::open(const QUrl &folder)
{
    m_model->openFolder(folder);
    ASSERT_TRUE(m_model->isLoading.value());
    ASSERT_TRUE(eventually([this] { return !m_model->isLoading.value(); }));
}

void EditorFixture::waitForArtwork()
{
    ASSERT_TRUE(
        eventually([this] { return m_model->artworkState().kind != EditorArtworkState::Kind::loading; }));
}

void EditorFixture::save()
{
    m_model->save();
    ASSERT_TRUE(m_model->isSaving.value());
    waitForSave();
}

void EditorFixture::waitForSave()
{
    ASSERT_TRUE(eventually([this] { return !m_model->isSaving.value(); }, 60000));
}

EditableAudioFile EditorFixture::row(const QString &name) const
{
    const QList<EditableAudioFile> rows = m_model->files.value();
    const auto found = std::find_if(rows.begin(), rows.end(), [&](const EditableAudioFile &candidate) {
        return lastPathComponent(candidate.url) == name;
    });
    EXPECT_NE(found, rows.end()) << name.toStdString();
    return found == rows.end() ? EditableAudioFile() : *found;
}

void EditorFixture::select(const QStringList &names)
{
    QSet<QUrl> urls;
    for (const QString &name : names)
        urls.insert(row(name).url);
    m_model->setSelection(urls);
}

QStringList EditorFixture::names() const
{
    QStringList names;
    for (const EditableAudioFile &shown : m_model->files.value())
        names.append(lastPathComponent(shown.url));
    return names;
}

EditableAudioFile rowOf(const QString &name, const AudioFileTags &tags)
{
    return {.url = QUrl::fromLocalFile(u"/songs/"_s + name),
            .tags = tags,
            .unreadableReason = {},
            .modificationDate = {}};
}

AudioFileTags tagsWith(EditableTagField field, const QString &value)
{
    AudioFileTags tags;
    switch (field) {
    case EditableTagField::trackPosition:
        tags.trackPosition = value;
        break;
    case EditableTagField::artist:
        tags.artist = value;
        break;
    case EditableTagField::album:
        tags.album = value;
        break;
    case EditableTagField::title:
        tags.title = value;
        break;
    case EditableTagField::year:
        tags.year = value;
        break;
    case EditableTagField::genre:
        tags.genre = value;
        break;
    case EditableTagField::discNumber:
        tags.discNumber = value;
        break;
    }
    return tags;
}

QString byteCountOf(const QUrl &file)
{
    return byteCountText(QFileInfo(file.toLocalFile()).size());
}

QStringList tagList(const QString &disc, const QString &position, const QString &artist)
{
    return {u"disc="_s + disc, u"track="_s + position, u"artist="_s + artist, u"title=Song"_s};
}

} // namespace tonearm::test
