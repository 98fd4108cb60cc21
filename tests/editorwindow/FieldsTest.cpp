// SPDX-License-Identifier: GPL-3.0-or-later
// What the boxes show for the selected files.
#include "editorwindow/EditorWindowTest.h"

#include "app/screens/editorwindow/OverwriteWarning.h"
#include "app/screens/editorwindow/TagField.h"
#include "app/screens/elements/Tooltip.h"

#include <QAccessible>
#include <QLabel>

namespace tonearm {

using namespace Qt::StringLiterals;
using namespace test;
using Field = EditableTagField;

namespace {

struct FieldsTest : EditorWindowTest
{
    QLineEdit &box(Field field) { return window.box(label(field)); }

    QStringList texts()
    {
        QStringList shown;
        for (const Field field : allEditableTagFields)
            shown.append(box(field).text());
        return shown;
    }

    QStringList placeholders()
    {
        QStringList shown;
        for (const Field field : allEditableTagFields)
            shown.append(box(field).placeholderText());
        return shown;
    }

    // The accessible names of the signs beside the boxes.
    QStringList signs()
    {
        QStringList names;
        for (auto *sign : widget().findChildren<OverwriteWarning *>())
            if (sign->isVisible())
                names.append(accessibleNameOf(*sign));
        return names;
    }

    QPoint placeOf(Field field) { return box(field).mapTo(&widget(), QPoint()); }

    static QStringList labels()
    {
        QStringList all;
        for (const Field field : allEditableTagFields)
            all.append(label(field));
        return all;
    }
};

const QString yearWarning = u"Year will be overwritten on every selected file"_s;

} // namespace

TEST_F(FieldsTest, AreEmptyWithoutAFile)
{
    EXPECT_EQ(texts(), QStringList(7, QString()));
    EXPECT_EQ(placeholders(), labels());
    for (const Field field : allEditableTagFields)
        EXPECT_TRUE(box(field).isEnabled());
}

TEST_F(FieldsTest, ShowTheValuesOfOneFile)
{
    show({filledRow(u"a.flac"_s)});
    EXPECT_EQ(texts(), (QStringList{u"03"_s, u"The Artist"_s, u"The Album"_s, u"The Song"_s, u"1969"_s,
                                    u"Skiffle"_s, u"1"_s}));
    EXPECT_EQ(placeholders(), labels());
    EXPECT_TRUE(signs().isEmpty());
}

TEST_F(FieldsTest, ShowWhatWaitsForASaveFirst)
{
    show({filledRow(u"a.flac"_s), filledRow(u"b.flac"_s)});
    select({u"a.flac"_s});
    model.setValue(u" 1970 "_s, Field::year);
    EXPECT_EQ(box(Field::year).text(), u" 1970 "_s);
    select({u"b.flac"_s});
    EXPECT_EQ(box(Field::year).text(), u"1969"_s);
    select({u"a.flac"_s});
    EXPECT_EQ(box(Field::year).text(), u" 1970 "_s);
    EXPECT_TRUE(signs().isEmpty());
}

TEST_F(FieldsTest, ShowADashWhereFilesDiffer)
{
    show({filledRow(u"a.flac"_s, u"1969"_s), filledRow(u"b.flac"_s, u"1970"_s)});
    EXPECT_EQ(box(Field::year).text(), QString());
    EXPECT_EQ(box(Field::year).placeholderText(), u"-"_s);
    EXPECT_EQ(box(Field::artist).text(), u"The Artist"_s);
    EXPECT_TRUE(signs().isEmpty());
    EXPECT_TRUE(model.changes.value() == TagChangeSet());
}

TEST_F(FieldsTest, WarnOnceADifferenceWillBeOverwritten)
{
    show({filledRow(u"a.flac"_s, u"1969"_s), filledRow(u"b.flac"_s, u"1970"_s)});
    const QString warning =
        u"This value will be applied to all 2 selected files, replacing the different values they have now."_s;
    EXPECT_FALSE(window.shows(warning));
    click(box(Field::year));
    type(u"2"_s);
    EXPECT_EQ(signs(), QStringList{yearWarning});
    EXPECT_TRUE(window.shows<QLabel>(warning));
    window.fillIn(u"Artist"_s, u"New"_s);
    EXPECT_EQ(signs(), QStringList{yearWarning});
    select({u"a.flac"_s});
    EXPECT_TRUE(signs().isEmpty());
    EXPECT_FALSE(window.shows(warning));
}

TEST_F(FieldsTest, SayWhatTheSignMeans)
{
    show({filledRow(u"a.flac"_s, u"1969"_s), filledRow(u"b.flac"_s, u"1970"_s)});
    model.setValue(u"2"_s, Field::year);
    auto &sign = window.find<OverwriteWarning>(yearWarning);
    EXPECT_EQ(sign.iconName(), IconName::warning);
    EXPECT_EQ(sign.toolTip(), plainTooltip(u"The selected files have different values for this tag. Saving "
                                           u"will give them all this one."_s));
    EXPECT_EQ(QAccessible::queryAccessibleInterface(&sign)->role(), QAccessible::Graphic);
}

TEST_F(FieldsTest, HaveASignForEachTag)
{
    QList<EditableAudioFile> rows = {rowOf(u"a.flac"_s), filledRow(u"b.flac"_s)};
    show(rows);
    for (const Field field : allEditableTagFields)
        model.setValue(u"5"_s, field);
    QStringList all = signs();
    all.sort();
    QStringList expected;
    for (const QString &name : labels())
        expected.append(name + u" will be overwritten on every selected file"_s);
    expected.sort();
    EXPECT_EQ(all, expected);
}

TEST_F(FieldsTest, StandInAGridOfTwoColumns)
{
    const int left = placeOf(Field::artist).x();
    const int right = placeOf(Field::album).x();
    EXPECT_LT(left, right);
    EXPECT_EQ(placeOf(Field::artist).y(), placeOf(Field::album).y());
    EXPECT_EQ(placeOf(Field::title), QPoint(left, placeOf(Field::genre).y()));
    EXPECT_EQ(placeOf(Field::trackPosition), QPoint(left, placeOf(Field::year).y()));
    EXPECT_EQ(placeOf(Field::genre).x(), right);
    EXPECT_EQ(placeOf(Field::year).x(), right);
    EXPECT_EQ(placeOf(Field::discNumber).x(), left);
    const int height = box(Field::artist).height();
    EXPECT_GE(placeOf(Field::title).y() - placeOf(Field::artist).y(), height + 10);
    EXPECT_GT(placeOf(Field::discNumber).y(), placeOf(Field::trackPosition).y());
}

TEST_F(FieldsTest, HaveTheirWidths)
{
    EXPECT_EQ(box(Field::trackPosition).width(), 90);
    EXPECT_EQ(box(Field::year).width(), 70);
    EXPECT_EQ(box(Field::discNumber).width(), 90);
    for (const Field field : {Field::artist, Field::album, Field::title, Field::genre})
        EXPECT_GE(box(field).width(), 110);
    for (const auto *field : widget().findChildren<TagField *>()) {
        const auto *name = field->findChild<QLabel *>({}, Qt::FindDirectChildrenOnly);
        EXPECT_EQ(name->width(), 96);
        EXPECT_EQ(name->text(), label(field->field()));
        EXPECT_EQ(name->buddy(), field->box());
        EXPECT_EQ(field->box()->x() - name->geometry().right() - 1, 6);
    }
}

TEST_F(FieldsTest, KeepTheirPlacesWhenASignComes)
{
    show({filledRow(u"a.flac"_s, u"1969"_s), filledRow(u"b.flac"_s, u"1970"_s)});
    WindowUser::settle();
    const QRect before = box(Field::artist).geometry();
    model.setValue(u"A"_s, Field::artist);
    show({filledRow(u"a.flac"_s), rowOf(u"b.flac"_s)});
    model.setValue(u"B"_s, Field::artist);
    WindowUser::settle();
    ASSERT_EQ(signs().size(), 1);
    EXPECT_EQ(box(Field::artist).geometry(), before);
    EXPECT_EQ(window.find<OverwriteWarning>(signs().first()).width(), 16);
}

TEST_F(FieldsTest, CantBeUsedDuringASave)
{
    show({filledRow(u"a.flac"_s)});
    model.isSaving = true;
    for (const Field field : allEditableTagFields)
        EXPECT_FALSE(box(field).isEnabled());
    EXPECT_FALSE(window.find(u"Choose from the default genres"_s).isEnabled());
    model.isSaving = false;
    for (const Field field : allEditableTagFields)
        EXPECT_TRUE(box(field).isEnabled());
}

TEST_F(FieldsTest, ShowTheStartOfALongValue)
{
    AudioFileTags tags;
    tags.album = QString(400, u'x');
    show({rowOf(u"a.flac"_s, tags)});
    EXPECT_EQ(box(Field::album).cursorPosition(), 0);
}

} // namespace tonearm
