// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "helpers/EditorFixture.h"
#include "helpers/Mutagen.h"
#include "helpers/ToldFFmpeg.h"

#include <gtest/gtest.h>

namespace tonearm::test {

/// Edits songs and saves them with an ffmpeg that can be told to wait or to fail for a file.
class EditorSave : public testing::Test
{
protected:
    EditorSave()
    {
        m_observer = m_model.saveStatus.addNotifier([this] {
            if (const std::optional<QString> status = m_model.saveStatus.value())
                m_statuses.append(*status);
        });
    }

    ~EditorSave() override { m_observer = {}; }

    void makeSongs(const QStringList &names)
    {
        for (const QString &name : names)
            m_fixture.songs().makeSong(name,
                                       tagList(QStringLiteral("1"), QStringLiteral("1"), name.first(1)));
        m_fixture.open();
        ASSERT_EQ(m_fixture.names(), names);
    }

    /// A FLAC file, and an M4A file that can't keep its tags.
    void makeMixedSongs()
    {
        makeSongs({QStringLiteral("a.flac"), QStringLiteral("b.m4a")});
        addIdentifiers(m_fixture.songs().path(QStringLiteral("b.m4a")));
        m_fixture.open();
        m_model.setValue(QStringLiteral("New"), EditableTagField::artist);
    }

    void tell(const QString &what, const QString &name) { m_tools.tell(what, name); }

    QString artistOf(const QString &name) { return m_fixture.songs().tags(name).artist; }

    void expectLine(const QString &line) { EXPECT_EQ(m_model.completionMessage.value(), line); }

    void expectAlert(const QString &title, const QString &message)
    {
        ASSERT_TRUE(m_model.alert.value());
        EXPECT_EQ(m_model.alert.value()->title, title);
        EXPECT_EQ(m_model.alert.value()->message, message);
    }

    void expectIdle()
    {
        EXPECT_FALSE(m_model.isSaving.value());
        EXPECT_EQ(m_model.saveProgress.value(), 0);
        EXPECT_EQ(m_model.saveStatus.value(), std::nullopt);
    }

    // NOLINTBEGIN(cppcoreguidelines-non-private-member-variables-in-classes): a fixture
    ToldFFmpeg m_tools;
    EditorFixture m_fixture{m_tools.location()};
    MetadataEditorModel &m_model = m_fixture.model();
    QStringList m_statuses;
    QPropertyNotifier m_observer;
    // NOLINTEND(cppcoreguidelines-non-private-member-variables-in-classes)
};

} // namespace tonearm::test
