// SPDX-License-Identifier: GPL-3.0-or-later
#include "workflow/PendingOverwrite.h"

#include "helpers/Printing.h"

#include <gtest/gtest.h>

namespace tonearm {

using namespace Qt::StringLiterals;

namespace {

PendingOverwrite questionAbout(int count)
{
    PendingOverwrite question;
    question.folder = QUrl::fromLocalFile(u"/music/Exit Stage Left"_s);
    for (int number = 1; number <= count; ++number)
        question.filenames.append(u"0%1-A.flac"_s.arg(number));
    return question;
}

} // namespace

TEST(PendingOverwrite, AsksAboutOneFile)
{
    const PendingOverwrite question = questionAbout(1);
    EXPECT_EQ(question.title(), u"Replace 1 existing file?"_s);
    EXPECT_EQ(question.message(), u"\"Exit Stage Left\" already contains the file:\n\n"
                                  u"01-A.flac\n\n"
                                  u"Encoding will overwrite it."_s);
}

TEST(PendingOverwrite, NamesFiveFiles)
{
    const PendingOverwrite question = questionAbout(5);
    EXPECT_EQ(question.title(), u"Replace 5 existing files?"_s);
    EXPECT_EQ(question.message(), u"\"Exit Stage Left\" already contains the files:\n\n"
                                  u"01-A.flac\n02-A.flac\n03-A.flac\n04-A.flac\n05-A.flac\n\n"
                                  u"Encoding will overwrite them."_s);
}

TEST(PendingOverwrite, CountsTheFilesBeyondFive)
{
    EXPECT_EQ(questionAbout(6).message(), u"\"Exit Stage Left\" already contains the files:\n\n"
                                          u"01-A.flac\n02-A.flac\n03-A.flac\n04-A.flac\n05-A.flac\n\n"
                                          u"…and 1 more. Encoding will overwrite them."_s);
    const PendingOverwrite question = questionAbout(8);
    EXPECT_EQ(question.title(), u"Replace 8 existing files?"_s);
    EXPECT_EQ(question.message(), u"\"Exit Stage Left\" already contains the files:\n\n"
                                  u"01-A.flac\n02-A.flac\n03-A.flac\n04-A.flac\n05-A.flac\n\n"
                                  u"…and 3 more. Encoding will overwrite them."_s);
}

TEST(PendingOverwrite, TakesNamesLiterally)
{
    PendingOverwrite question = questionAbout(1);
    question.folder = QUrl::fromLocalFile(u"/music/%1 100% #1?/"_s);
    question.filenames = {u"01-%2 %1.flac"_s};
    EXPECT_EQ(question.message(), u"\"%1 100% #1?\" already contains the file:\n\n"
                                  u"01-%2 %1.flac\n\n"
                                  u"Encoding will overwrite it."_s);
}

} // namespace tonearm
