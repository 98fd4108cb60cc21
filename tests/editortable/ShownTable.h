// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "app/screens/editortable/EditorHeader.h"
#include "app/screens/editortable/EditorRowList.h"
#include "app/screens/editortable/MetadataEditorTable.h"
#include "helpers/EditorFixture.h"

#include <QString>
#include <QStringList>

namespace tonearm::test {

// Columns of the table.
inline constexpr int nameColumn = 0;
inline constexpr int artistColumn = 2;

EditableAudioFile unreadableRow(const QString &name);

/// Rows of one artist whose names have a number, from 1.
QList<EditableAudioFile> manyRows(int count);

/// The tag editor's table on the screen, with a model of its own.
class ShownTable
{
public:
    explicit ShownTable(const QList<EditableAudioFile> &rows = {});

    MetadataEditorModel &model() { return m_fixture.model(); }

    EditorFixture &fixture() { return m_fixture; }

    MetadataEditorTable &table() { return m_table; }

    EditorRowList &list();
    EditorHeader &header();

    /// The first one without modifiers: what a plain click would do.
    void clickRow(int row, Qt::KeyboardModifiers modifiers = Qt::NoModifier);
    void clickTitle(int column);
    /// Drags the right edge of a column by so many pixels, in small steps.
    void dragEdge(int column, int by);

    /// The names of the rows that the model has selected, in the rows' order.
    QStringList selectedNames();
    /// The names of the rows that are highlighted.
    QStringList highlightedNames();
    /// The names of all rows as they are shown.
    QStringList names();

    bool shows(const QString &text);

private:
    EditorFixture m_fixture;
    MetadataEditorTable m_table;
};

} // namespace tonearm::test
