// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/MountMonitor.h"

#include "helpers/Await.h"
#include "helpers/DiscImage.h"
#include "helpers/Media.h"
#include "helpers/Mounting.h"

#include <gtest/gtest.h>

#include <QCoreApplication>
#include <QTemporaryDir>

namespace tonearm {

using namespace Qt::StringLiterals;

TEST(MountMonitor, TellsOfAMountAndOfAnUnmount)
{
    SKIP_WITHOUT_MOUNTS();
    const QTemporaryDir images;
    const QTemporaryDir folder;
    const test::DiscImage image(images.path(), {.tracks = {{}}});
    bool isMounted = false;
    const MountMonitor monitor([&] { isMounted = test::mountedOn(folder.path()).has_value(); });

    test::outputOf(QCoreApplication::applicationDirPath() + u"/tonearm-cddafs",
                   {u"--background"_s, image.path(), folder.path()});
    EXPECT_TRUE(test::eventually([&] { return isMounted; }));
    test::unmount(folder.path());
    EXPECT_TRUE(test::eventually([&] { return !isMounted; }));
}

} // namespace tonearm
