// SPDX-License-Identifier: GPL-3.0-or-later
#include "bench/FirstFrame.h"

#include <QApplication>
#include <QEvent>
#include <QFile>
#include <QTimer>

#include <chrono>
#include <cstdio>

namespace tonearm {

namespace {

class FirstPaint : public QObject
{
public:
    bool eventFilter(QObject *, QEvent *event) override
    {
        // The paint itself follows this event; a zero timer comes after it.
        if (event->type() == QEvent::Paint && !m_seen) {
            m_seen = true;
            QTimer::singleShot(0, this, report);
        }
        return false;
    }

private:
    static void report()
    {
        const auto now = std::chrono::system_clock::now().time_since_epoch();
        QFile memory(QStringLiteral("/proc/self/statm"));
        const long pages = memory.open(QIODevice::ReadOnly) ? memory.readAll().split(' ')[1].toLong() : 0;
        constexpr long kilobytesOfPage = 4;
        std::printf("%lld %ld\n", static_cast<long long>(std::chrono::nanoseconds(now).count()),
                    pages * kilobytesOfPage);
        QApplication::quit();
    }

    bool m_seen = false;
};

} // namespace

int reportFirstFrame()
{
    FirstPaint paint;
    // On the application, because what fills the window may leave nothing of it to be painted.
    qApp->installEventFilter(&paint);
    return QApplication::exec();
}

} // namespace tonearm
