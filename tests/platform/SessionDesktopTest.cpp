// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/SessionDesktop.h"

#include "helpers/Await.h"

#include <gtest/gtest.h>

#include <QCoreApplication>
#include <QThread>

#include <atomic>

namespace tonearm {

using namespace Qt::StringLiterals;

TEST(SessionDesktop, IsSilentWithoutABus)
{
    std::atomic<int> openings = 0;
    std::atomic<bool> isOnMainThread = false;
    const auto open = [&] {
        isOnMainThread = isOnMainThread || QThread::currentThread() == QCoreApplication::instance()->thread();
        ++openings;
        return QDBusConnection(u"nobody"_s);
    };
    SessionDesktop desktop(open, open);
    desktop.showProgress(0.5);
    desktop.notify({u"Encoded 1 track."_s, {}}, [] {});
    desktop.keepAwake(u"Encoding to FLAC"_s);
    // The other bus is turned to when nobody on the first has agreed.
    EXPECT_TRUE(test::eventually([&] { return openings == 2; }));
    EXPECT_FALSE(isOnMainThread);
    desktop.letSleep();
    desktop.showProgress(std::nullopt);
}

TEST(SessionDesktop, ConnectsToNothingForNothing)
{
    int openings = 0;
    const auto open = [&] {
        ++openings;
        return QDBusConnection(u"nobody"_s);
    };
    {
        SessionDesktop desktop(open, open);
        desktop.showProgress(std::nullopt);
        desktop.letSleep();
    }
    EXPECT_EQ(openings, 0);
}

} // namespace tonearm
