// SPDX-License-Identifier: GPL-3.0-or-later
#include "workflow/AlertContent.h"

#include "encoding/AudioEncodingError.h"
#include "helpers/Printing.h"
#include "tools/ProcessRunner.h"

#include <gtest/gtest.h>

namespace tonearm {

using namespace Qt::StringLiterals;

TEST(AlertContent, TellsAFailureWithItsSuggestion)
{
    const AlertContent alert(u"Encoding Failed"_s, std::make_exception_ptr(AudioEncodingError::noChapters()));
    EXPECT_EQ(alert.title, u"Encoding Failed"_s);
    EXPECT_EQ(alert.message,
              u"There are no chapters to encode.\n\nLoad an .mkv file that has chapter markers."_s);
}

TEST(AlertContent, TellsAFailureThatHasNoSuggestion)
{
    const auto failure = ProcessRunnerError::nonZeroExit(u"ffmpeg"_s, 1, u"no good\n"_s);
    const AlertContent alert(u"Encoding Failed"_s, std::make_exception_ptr(failure));
    EXPECT_EQ(alert.message, u"ffmpeg exited with status 1.\n\nno good"_s);
}

TEST(AlertContent, IsAnotherEachTimeItIsMade)
{
    const AlertContent first(u"A"_s, u"B"_s);
    const AlertContent second(u"A"_s, u"B"_s);
    EXPECT_NE(first.id, second.id);
    EXPECT_NE(first, second);
    EXPECT_EQ(first, AlertContent(first)); // NOLINT(performance-unnecessary-copy-initialization)
}

} // namespace tonearm
