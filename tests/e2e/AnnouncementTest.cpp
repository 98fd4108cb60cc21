// SPDX-License-Identifier: GPL-3.0-or-later
// What a screen reader is told without the focus going there.
#include "e2e/ShownWindow.h"

#include "helpers/Await.h"
#include "helpers/Printing.h"

#include <QAccessible>
#include <QFile>

namespace tonearm {

using namespace Qt::StringLiterals;
using namespace test;
using Kind = WorkflowState::Kind;

namespace {

// Qt calls one function without any context, so what it hears is kept beside the tests.
QStringList &heard()
{
    static QStringList names;
    return names;
}

void hear(QAccessibleEvent *event)
{
    qWarning() << event->type() << QAccessible::isActive();
    // Not asked of other events, some of which come from what is half built or half destroyed.
    if (event->type() != QAccessible::Alert)
        return;
    const QAccessibleInterface *source = event->accessibleInterface();
    if (source && source->role() == QAccessible::Notification)
        heard().append(source->text(QAccessible::Name));
}

struct AnnouncementTest : ScriptedWindowTest
{
    AnnouncementTest()
    {
        heard().clear();
        QAccessible::setActive(true);
        m_before = QAccessible::installUpdateHandler(hear);
    }

    ~AnnouncementTest() override
    {
        QAccessible::installUpdateHandler(m_before);
        QAccessible::setActive(false);
    }

private:
    QAccessible::UpdateHandler m_before = nullptr;
};

} // namespace

TEST_F(AnnouncementTest, TellsHowAJobGoes)
{
    surroundings.prepareJob(tools.source());
    click(window.button(u"Encode to FLAC"_s));
    surroundings.waitForJobEnd();
    EXPECT_EQ(heard(), (QStringList{u"Reading chapters…"_s, u"Found 2 chapters."_s, u"Starting…"_s,
                                    u"Encoding 1 of 2: One"_s, u"Encoding 2 of 2: Two"_s,
                                    u"Encoded 2 tracks to out."_s}));
}

TEST_F(AnnouncementTest, TellsAnErrorOnce)
{
    model.currentState = WorkflowState::error(u"It broke."_s);
    model.currentState = WorkflowState::error(u"It broke."_s);
    EXPECT_EQ(heard(), QStringList{u"It broke."_s});
}

TEST_F(AnnouncementTest, SaysNothingOfWhatIsNotShown)
{
    model.progressMessage = u"Some message"_s;
    model.chapters = chaptersTitled({u"One"_s});
    model.currentState = Kind::idle;
    EXPECT_EQ(heard(), QStringList());
}

TEST_F(AnnouncementTest, TellsOfToolsThatAreMissingAndFoundAgain)
{
    ASSERT_TRUE(QFile::rename(tools.path(u"bin/ffmpeg"_s), tools.path(u"ffmpeg"_s)));
    model.checkFFmpeg();
    ASSERT_TRUE(eventually([this] { return !model.ffmpegCheckTask.value(); }));
    ASSERT_TRUE(QFile::rename(tools.path(u"ffmpeg"_s), tools.path(u"bin/ffmpeg"_s)));
    model.checkFFmpeg();
    ASSERT_TRUE(eventually([this] { return !model.ffmpegCheckTask.value(); }));
    EXPECT_EQ(heard(), (QStringList{u"Tonearm's audio tools are missing"_s, u"Audio tools are ready"_s}));
}

} // namespace tonearm
