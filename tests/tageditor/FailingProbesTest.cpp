// SPDX-License-Identifier: GPL-3.0-or-later
// Saves whose looks at the rewritten copy fail or never end: the song stays as it was, to the byte.
#include "helpers/Await.h"
#include "helpers/Contents.h"
#include "helpers/FFmpegStandIn.h"
#include "helpers/Printing.h"
#include "helpers/SongFolder.h"
#include "support/Cancellation.h"
#include "tageditor/Writes.h"

#include <gtest/gtest.h>

#include <QFile>

#include <ostream>
#include <utility>

namespace tonearm {

using namespace Qt::StringLiterals;
using test::SongFolder;

namespace {

constexpr auto hanging = R"(echo $$ > "$here/pid"; touch "$here/started"; exec sleep 600)";
constexpr auto failing = R"(echo "Input/output error" >&2; exit 1)";

// The real tools, but for one of the looks that ffprobe is asked to take.
class ProbeStandIn : public test::FFmpegStandIn
{
public:
    ProbeStandIn(const QByteArray &look, const QByteArray &body)
        : FFmpegStandIn(R"(exec "$ffmpeg" "$@")")
    {
        const QUrl real = test::shippedTools().toolURL(u"ffprobe"_s);
        add(u"ffprobe"_s, "for file; do :; done\n"
                          "case \"$*\" in *-show_data_hash*) look=packets;; *) look=tags;; esac\n"
                          "case \"$file\" in */song.*) look=\"$look of the song\";;"
                          " *) look=\"$look of the copy\";; esac\n"
                          "if [ \"$look\" = '" +
                              look + "' ]; then\n" + body + "\nfi\nexec '" +
                              QFile::encodeName(real.toLocalFile()) + "' \"$@\"");
    }
};

class FailingProbes : public testing::Test
{
protected:
    FailingProbes(const QByteArray &look, const QByteArray &body)
        : m_tools(look, body)
    {
    }

    void SetUp() override
    {
        m_folder.makeSong(u"song.flac"_s);
        m_contents = test::readFile(m_folder.path(u"song.flac"_s));
        m_file = m_folder.load(u"song.flac"_s);
    }

    QCoro::Task<QStringList> write(const std::stop_token &stop = {}) const
    {
        return m_folder.service().write(m_file, test::newTitle(), true, stop);
    }

    void expectUntouched() const
    {
        EXPECT_EQ(test::namesIn(m_folder.path()), QStringList{u"song.flac"_s});
        EXPECT_TRUE(test::readFile(m_folder.path(u"song.flac"_s)) == m_contents);
        EXPECT_EQ(m_folder.load(u"song.flac"_s), m_file);
        EXPECT_TRUE(m_folder.temporaryFiles().isEmpty());
    }

    void expectEndByStop(QCoro::Task<QStringList> task, const std::stop_source &stop) const
    {
        ASSERT_TRUE(m_tools.waitFor(u"started"_s));
        EXPECT_TRUE(m_tools.isRunning());
        stop.request_stop();
        EXPECT_TRUE(test::awaitError<CancellationError>(std::move(task)));
        EXPECT_FALSE(m_tools.isRunning());
        expectUntouched();
    }

    const test::FFmpegStandIn &tools() const { return m_tools; }

    const SongFolder &folder() const { return m_folder; }

    const EditableAudioFile &file() const { return m_file; }

private:
    ProbeStandIn m_tools;
    SongFolder m_folder{m_tools.location()};
    QByteArray m_contents;
    EditableAudioFile m_file;
};

struct Look
{
    // A test name.
    const char *name;
    const char *look;
};

void PrintTo(const Look &look, std::ostream *out)
{
    *out << look.look;
}

struct HangingProbes : FailingProbes, testing::WithParamInterface<Look>
{
    HangingProbes()
        : FailingProbes(GetParam().look, hanging)
    {
    }
};

struct HangingPreflight : FailingProbes
{
    HangingPreflight()
        : FailingProbes("tags of the copy", hanging)
    {
    }
};

struct UnreadableCopies : FailingProbes
{
    UnreadableCopies()
        : FailingProbes("tags of the copy", failing)
    {
    }
};

struct UnreadablePackets : FailingProbes, testing::WithParamInterface<Look>
{
    UnreadablePackets()
        : FailingProbes(GetParam().look, failing)
    {
    }
};

ProcessRunnerError probeError()
{
    return ProcessRunnerError::nonZeroExit(u"ffprobe"_s, 1, u"Input/output error\n"_s);
}

} // namespace

TEST_P(HangingProbes, EndWhenTheyAreStopped)
{
    const std::stop_source stop;
    auto task = write(stop.get_token());
    ASSERT_TRUE(tools().waitFor(u"started"_s));
    EXPECT_EQ(test::namesIn(folder().path()).size(), 2) << "there is a copy to be looked at";
    expectEndByStop(std::move(task), stop);
}

TEST_F(HangingPreflight, EndsWhenItIsStopped)
{
    const std::stop_source stop;
    auto task = folder().service().preflight(file(), test::newTitle(), stop.get_token());
    ASSERT_TRUE(tools().waitFor(u"started"_s));
    EXPECT_EQ(folder().temporaryFiles().size(), 1) << "there is a copy to be looked at";
    expectEndByStop(std::move(task), stop);
}

TEST_F(UnreadableCopies, AreToldOfAndThrownAway)
{
    const QString text = u"The rewritten copy of \"song.flac\" couldn't be read, so the file was left "
                         u"unchanged.\n\n"_s +
                         probeError().description();
    EXPECT_EQ(test::awaitError<AudioFileTagError>(write()), AudioFileTagError::malformedOutput(text));
    expectUntouched();
    EXPECT_EQ(test::awaitError<AudioFileTagError>(folder().service().preflight(file(), test::newTitle(), {})),
              AudioFileTagError::malformedOutput(text));
    expectUntouched();
}

TEST_P(UnreadablePackets, AreToldOf)
{
    EXPECT_EQ(test::awaitError<ProcessRunnerError>(write()), probeError());
    expectUntouched();
}

INSTANTIATE_TEST_SUITE_P(EachLook, HangingProbes,
                         testing::Values(Look{"TagsOfTheCopy", "tags of the copy"},
                                         Look{"PacketsOfTheCopy", "packets of the copy"},
                                         Look{"PacketsOfTheSong", "packets of the song"}),
                         [](const auto &test) { return std::string(test.param.name); });

INSTANTIATE_TEST_SUITE_P(EachLook, UnreadablePackets,
                         testing::Values(Look{"OfTheCopy", "packets of the copy"},
                                         Look{"OfTheSong", "packets of the song"}),
                         [](const auto &test) { return std::string(test.param.name); });

} // namespace tonearm
