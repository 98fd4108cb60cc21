// SPDX-License-Identifier: GPL-3.0-or-later
#include "support/DescribedError.h"

#include "helpers/Printing.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <stdexcept>
#include <system_error>

namespace tonearm {

using namespace Qt::StringLiterals;

namespace {

class BadWeather : public DescribedError
{
public:
    QString description() const override { return u"It rains."_s; }
};

class BadClothes : public BadWeather
{
public:
    std::optional<QString> recoverySuggestion() const override { return u"Take a coat."_s; }
};

template <typename Error> ErrorWords wordsOf(const Error &error)
{
    return describe(std::make_exception_ptr(error));
}

const std::error_code noSuchFile = std::make_error_code(std::errc::no_such_file_or_directory);

} // namespace

TEST(DescribedError, SpeaksForItself)
{
    EXPECT_EQ(wordsOf(BadWeather()), (ErrorWords{u"It rains."_s, std::nullopt}));
    EXPECT_EQ(wordsOf(BadClothes()), (ErrorWords{u"It rains."_s, u"Take a coat."_s}));
}

TEST(DescribedError, TellsASystemErrorInTheWordsOfTheSystem)
{
    EXPECT_EQ(wordsOf(std::system_error(noSuchFile)),
              (ErrorWords{u"No such file or directory."_s, std::nullopt}));
    EXPECT_EQ(wordsOf(std::system_error(noSuchFile, "")).description, u"No such file or directory."_s);
}

TEST(DescribedError, PutsThePlaceInFrontOfASystemError)
{
    EXPECT_EQ(wordsOf(std::system_error(ENOENT, std::generic_category(), "/a/ä")).description,
              u"/a/ä: No such file or directory."_s);
    EXPECT_EQ(wordsOf(std::system_error(EACCES, std::system_category(), "/a: b")).description,
              u"/a: b: Permission denied."_s);
    EXPECT_EQ(wordsOf(std::system_error(noSuchFile, "/x: No such file or directory")).description,
              u"/x: No such file or directory: No such file or directory."_s);
}

TEST(DescribedError, TellsTheFileOfAFileSystemError)
{
    const std::filesystem::filesystem_error error("cannot open", "/a/ä", noSuchFile);
    EXPECT_EQ(wordsOf(error).description, u"/a/ä: No such file or directory."_s);
    EXPECT_EQ(wordsOf(std::filesystem::filesystem_error("cannot open", noSuchFile)).description,
              u"No such file or directory."_s);
}

TEST(DescribedError, TellsAnyOtherExceptionByWhatItCarries)
{
    EXPECT_EQ(wordsOf(std::runtime_error("Gone wröng")), (ErrorWords{u"Gone wröng"_s, std::nullopt}));
}

TEST(DescribedError, HasWordsForWhatIsNoExceptionAtAll)
{
    EXPECT_EQ(wordsOf(7), (ErrorWords{u"An unexpected failure occurred."_s, std::nullopt}));
}

TEST(DescribedError, JoinsItsTextsOnlyIfThereAreTwo)
{
    EXPECT_EQ(wordsOf(BadClothes()).joined(u"\n\n"_s), u"It rains.\n\nTake a coat."_s);
    EXPECT_EQ(wordsOf(BadWeather()).joined(u"\n\n"_s), u"It rains."_s);
}

} // namespace tonearm
