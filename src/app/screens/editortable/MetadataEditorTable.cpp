// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/screens/editortable/MetadataEditorTable.h"

#include "app/screens/editortable/EditorFooter.h"
#include "app/screens/editortable/EditorRowList.h"
#include "app/screens/elements/Bind.h"
#include "app/screens/elements/PlaceholderScreen.h"
#include "tageditor/MetadataEditorModel.h"

#include <QStackedWidget>
#include <QVBoxLayout>

namespace tonearm {

using namespace Qt::StringLiterals;

namespace {

constexpr int gap = 6;

// What stands in the table's place, in the order of the stack.
enum class Shown { rows, reading, nothingEditable, noFolder };

Shown shownFor(const MetadataEditorModel &model)
{
    if (!model.files.value().isEmpty())
        return Shown::rows;
    if (model.isLoading.value())
        return Shown::reading;
    return model.hasLoadedFolder.value() ? Shown::nothingEditable : Shown::noFolder;
}

PlaceholderContent contentOf(Shown shown)
{
    switch (shown) {
    case Shown::rows:
        break;
    case Shown::reading:
        return {IconName::waveform, u"Reading Tags"_s, u"Reading the tags of every file in the folder."_s};
    case Shown::nothingEditable:
        return {
            IconName::folder, u"No Editable Audio Files"_s,
            u"There are no FLAC, MP3 or M4A files directly inside that folder. Subfolders aren't searched."_s};
    case Shown::noFolder:
        return {IconName::folderGear, u"No Folder Chosen"_s,
                u"Choose a folder of FLAC, MP3 or M4A files to edit their tags."_s};
    }
    Q_UNREACHABLE();
}

} // namespace

MetadataEditorTable::MetadataEditorTable(MetadataEditorModel &model, QWidget *parent)
    : QWidget(parent)
{
    auto *rows = new EditorRowList(model, this);
    auto *places = new QStackedWidget(this);
    places->addWidget(rows);
    for (const Shown shown : {Shown::reading, Shown::nothingEditable, Shown::noFolder})
        places->addWidget(new PlaceholderScreen(contentOf(shown), places));
    bind(
        places, [&model] { return shownFor(model); },
        [](QStackedWidget *stack, Shown shown) { stack->setCurrentIndex(int(shown)); });
    auto *column = new QVBoxLayout(this);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(gap);
    column->addWidget(places, 1);
    column->addWidget(new EditorFooter(model, this));
}

} // namespace tonearm
