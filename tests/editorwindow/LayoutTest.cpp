// SPDX-License-Identifier: GPL-3.0-or-later
// The window's sizes and what becomes of its content in them.
#include "editorwindow/EditorWindowTest.h"

#include "app/screens/editorwindow/MetadataEditorView.h"
#include "app/screens/elements/ArtworkWell.h"

#include <QAbstractScrollArea>

namespace tonearm {

using namespace Qt::StringLiterals;
using namespace test;
using Field = EditableTagField;

namespace {

struct EditorLayoutTest : EditorWindowTest
{
    QWidget &view() { return *widget().findChild<MetadataEditorView *>(); }

    void expectNothingClippedAt(const QSize &size)
    {
        widget().resize(size);
        WindowUser::settle();
        EXPECT_EQ(widget().size(), size);
        EXPECT_EQ(window.clipped(), QStringList());
        EXPECT_GE(view().width(), view().minimumSizeHint().width());
        EXPECT_GE(view().height(), view().minimumSizeHint().height());
        EXPECT_EQ(coveredControls(), QStringList());
    }

    // What takes the keyboard and is to be seen only in part.
    QStringList coveredControls()
    {
        QStringList names;
        for (QWidget *control : widget().findChildren<QWidget *>())
            if (control->isVisible() && control->focusPolicy() != Qt::NoFocus &&
                !qobject_cast<QAbstractScrollArea *>(control) &&
                control->visibleRegion().boundingRect() != control->rect())
                names.append(accessibleNameOf(*control));
        return names;
    }

    // All that can be shown at once.
    void fill()
    {
        show({filledRow(u"a.flac"_s, u"1969"_s), filledRow(u"b.flac"_s, u"1970"_s)});
        model.setValue(u"1971"_s, Field::year);
        model.ffmpegProblem = u"Tonearm's ffmpeg couldn't be found. Install the application again."_s;
        model.skippedAudioCount = 2;
        RefusedSave report;
        report.tags = {u"one"_s, u"two"_s};
        model.droppedTagReports = QList<RefusedSave>{report};
    }
};

} // namespace

TEST_F(EditorLayoutTest, HasASizeAtFirstAndALeastOne)
{
    EXPECT_EQ(widget().windowTitle(), u"Edit Metadata"_s);
    EXPECT_EQ(widget().size(), QSize(1000, 780));
    widget().resize(100, 100);
    EXPECT_EQ(widget().size(), QSize(900, 640));
}

TEST_F(EditorLayoutTest, KeepsTheSameGapsAllTheWayDown)
{
    fill();
    WindowUser::settle();
    QList<int> gaps;
    int bottom = -1;
    for (const QObject *child : view().children()) {
        const auto *block = qobject_cast<const QWidget *>(child);
        if (!block || !block->isVisible() || block->isWindow())
            continue;
        gaps.append(block->y() - bottom - 1);
        bottom = block->geometry().bottom();
        EXPECT_EQ(block->x(), 16);
        EXPECT_EQ(block->geometry().right(), view().width() - 1 - 16);
    }
    gaps.append(view().height() - bottom - 1);
    EXPECT_EQ(gaps, (QList<int>{16, 12, 12, 12, 12, 12, 12, 12, 16}));
}

TEST_F(EditorLayoutTest, ClipsNothing)
{
    for (const QSize &size : {QSize(900, 640), QSize(1000, 780), QSize(1920, 1080)})
        expectNothingClippedAt(size);
    fill();
    for (const QSize &size : {QSize(900, 640), QSize(1000, 780), QSize(1920, 1080)})
        expectNothingClippedAt(size);
    model.completionMessage =
        u"Saved 12 files · 34 held back · dropped unwritable tags from 5 · 6 couldn't be written · saving was cancelled."_s;
    expectNothingClippedAt({900, 640});
    model.isSaving = true;
    model.isLoading = true;
    expectNothingClippedAt({900, 640});
}

TEST_F(EditorLayoutTest, HasTheArtworkBesideTheFields)
{
    WindowUser::settle();
    const QWidget *column = window.find<ArtworkWell>(u"Cover art drop area"_s).parentWidget();
    EXPECT_EQ(column->geometry().right(), column->parentWidget()->rect().right());
    const QLineEdit &genre = window.box(u"Genre"_s);
    const int columnLeft = column->mapTo(&widget(), QPoint()).x();
    const QWidget *field = genre.parentWidget();
    EXPECT_EQ(columnLeft - field->mapTo(&widget(), QPoint()).x() - field->width(), 20);
}

TEST_F(EditorLayoutTest, GivesTheTableWhatRoomThereIs)
{
    const int before = window.box(u"Artist"_s).mapTo(&widget(), QPoint()).y();
    widget().resize(1000, 980);
    WindowUser::settle();
    EXPECT_EQ(window.box(u"Artist"_s).mapTo(&widget(), QPoint()).y(), before + 200);
}

} // namespace tonearm
