// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/screens/releases/NoticeList.h"

#include "app/screens/elements/IconLabel.h"
#include "helpers/Printing.h"
#include "helpers/Rendering.h"
#include "helpers/Widgets.h"

#include <gtest/gtest.h>

namespace tonearm {

using namespace Qt::StringLiterals;
using namespace test;

namespace {

QStringList textsIn(const NoticeList &list)
{
    QStringList texts;
    for (const auto *label : list.findChildren<IconLabel *>())
        texts.append(label->text());
    return texts;
}

// The one label of the list as it would look with an icon.
QImage expectedLook(const NoticeList &list, IconName name)
{
    const auto *shown = list.findChild<IconLabel *>();
    IconLabel label(name, Tone::warning);
    label.setFont(shown->font());
    label.setText(shown->text());
    label.resize(shown->size());
    return rendered(label);
}

} // namespace

TEST(NoticeList, HasALineForEachNotice)
{
    NoticeList list(TextStyle::small);
    list.setNotices({{MetadataSource::musicBrainz, u"One <b> & more"_s, false},
                     {MetadataSource::discogs, u"Two"_s, true}});
    EXPECT_EQ(textsIn(list), (QStringList{u"One <b> & more"_s, u"Two"_s}));
    list.setNotices({{MetadataSource::discogs, u"Three"_s, true}});
    EXPECT_EQ(textsIn(list), QStringList{u"Three"_s});
}

TEST(NoticeList, TakesNoRoomWithoutNotices)
{
    NoticeList list(TextStyle::small);
    EXPECT_TRUE(list.isHidden());
    list.setNotices({{MetadataSource::discogs, u"One"_s, false}});
    EXPECT_FALSE(list.isHidden());
    list.setNotices({});
    EXPECT_TRUE(list.isHidden());
}

TEST(NoticeList, TellsAConfigurationFromAFailureByItsIcon)
{
    NoticeList list(TextStyle::callout);
    for (const auto &[isConfiguration, name] :
         {std::pair(true, IconName::gearWarning), std::pair(false, IconName::warningOutline)}) {
        list.setNotices({{MetadataSource::discogs, QString(), isConfiguration}});
        list.show();
        EXPECT_EQ(rendered(*list.findChild<IconLabel *>()), expectedLook(list, name));
    }
    EXPECT_NE(expectedLook(list, IconName::gearWarning), expectedLook(list, IconName::warningOutline));
}

} // namespace tonearm
