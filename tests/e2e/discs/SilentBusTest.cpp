// SPDX-License-Identifier: GPL-3.0-or-later
// The application where the system's bus takes its callers and never answers them.
#include "app/TonearmApp.h"
#include "helpers/Await.h"
#include "helpers/Borrowed.h"
#include "helpers/ModelFixture.h"
#include "helpers/Mounting.h"
#include "helpers/Printing.h"
#include "helpers/PrivateBus.h"
#include "support/ResourceFolder.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QElapsedTimer>
#include <QLocalServer>
#include <QTemporaryDir>

namespace tonearm {

using namespace Qt::StringLiterals;
using namespace test;

namespace {

// A caller of the bus gives up after 25 seconds.
constexpr int wellBelowItsPatience = 15000;

// Whether anything of a window has been painted.
class FirstFrame : public QObject
{
public:
    explicit FirstFrame(const QWidget &window)
        : m_window(window)
    {
        qApp->installEventFilter(this);
    }

    bool hasCome() const { return m_hasCome; }

    bool eventFilter(QObject *watched, QEvent *event) override
    {
        const auto *widget = qobject_cast<const QWidget *>(watched);
        m_hasCome = m_hasCome || (event->type() == QEvent::Paint && widget && widget->window() == &m_window);
        return false;
    }

private:
    const QWidget &m_window;
    bool m_hasCome = false;
};

} // namespace

TEST(SilentBus, HoldsUpNeitherTheWindowNorOtherBusesNorTheEnd)
{
    const QTemporaryDir folder;
    QLocalServer silence;
    ASSERT_TRUE(silence.listen(folder.filePath(u"bus"_s)));
    const BorrowedVariable address("DBUS_SYSTEM_BUS_ADDRESS",
                                   "unix:path=" + folder.filePath(u"bus"_s).toUtf8());
    const BorrowedVariable runtime("XDG_RUNTIME_DIR", folder.path().toUtf8());
    PrivateBus other;
    QElapsedTimer time;
    time.start();
    {
        TonearmApp app(folder.filePath(u"settings.json"_s), folder.filePath(u"windows.json"_s),
                       resourceFolder(), ModelFixture::noServices());
        const FirstFrame frame(app.mainWindow());
        app.openMainWindow();
        ASSERT_TRUE(eventually([&] { return frame.hasCome(); }));
        ASSERT_TRUE(eventually([&] { return silence.hasPendingConnections(); }));
        ASSERT_TRUE(eventually([&] { return app.model().isFFmpegInstalled(); }));
        EXPECT_TRUE(other.connect().isConnected());
    }
    EXPECT_LT(time.elapsed(), wellBelowItsPatience);
}

} // namespace tonearm
