// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/LauncherEntry.h"

#include "helpers/Await.h"
#include "helpers/Printing.h"
#include "helpers/PrivateBus.h"
#include "platform/LauncherListener.h"

#include <gtest/gtest.h>

#include <optional>

namespace tonearm {

using namespace Qt::StringLiterals;

namespace {

class LauncherEntryTest : public testing::Test
{
protected:
    void makeEntry(std::chrono::milliseconds interval) { m_entry.emplace(m_lazyBus, interval); }

    // Waits for these updates, and no others.
    void expectUpdates(const QStringList &progress)
    {
        QStringList updates;
        for (const QString &value : progress)
            updates.append(u"application://example.tonearm.Tonearm.desktop "_s + value);
        EXPECT_TRUE(test::eventually([&] { return m_dock.updates().size() >= updates.size(); }));
        EXPECT_EQ(m_dock.updates(), updates);
    }

    test::PrivateBus m_bus;
    test::LauncherListener m_dock{m_bus.connect()};
    LazyBus m_lazyBus{[connection = m_bus.connect()] { return connection; }};
    std::optional<LauncherEntry> m_entry;
};

} // namespace

TEST_F(LauncherEntryTest, ShowsProgress)
{
    makeEntry(std::chrono::milliseconds(1));
    m_entry->showProgress(0.25);
    expectUpdates({u"0.25"_s});
    EXPECT_EQ(m_dock.signatures(), QStringList{u"sa{sv}"_s});
}

TEST_F(LauncherEntryTest, HoldsBackWhatComesTooFast)
{
    makeEntry(std::chrono::hours(1));
    for (const double fraction : {0.0, 0.1, 0.2, 0.3})
        m_entry->showProgress(fraction);
    m_entry->showProgress(std::nullopt);
    expectUpdates({u"0"_s, u"none"_s});
}

TEST_F(LauncherEntryTest, ShowsTheLatestNewsAfterAPause)
{
    makeEntry(std::chrono::milliseconds(20));
    for (const double fraction : {0.0, 0.1, 0.2, 0.3})
        m_entry->showProgress(fraction);
    expectUpdates({u"0"_s, u"0.3"_s});
}

TEST_F(LauncherEntryTest, RepeatsNothing)
{
    makeEntry(std::chrono::milliseconds(0));
    m_entry->showProgress(std::nullopt);
    m_entry->showProgress(0.5);
    m_entry->showProgress(0.5);
    expectUpdates({u"0.5"_s});
    m_entry->showProgress(0.75);
    expectUpdates({u"0.5"_s, u"0.75"_s});
}

TEST_F(LauncherEntryTest, TakesTheProgressAwayAtItsEnd)
{
    makeEntry(std::chrono::hours(1));
    m_entry->showProgress(0.5);
    expectUpdates({u"0.5"_s});
    m_entry.reset();
    expectUpdates({u"0.5"_s, u"none"_s});
}

TEST_F(LauncherEntryTest, IsHeardByADockThatComesLater)
{
    makeEntry(std::chrono::milliseconds(0));
    m_entry->showProgress(0.25);
    expectUpdates({u"0.25"_s});
    const test::LauncherListener second(m_bus.connect());
    m_entry->showProgress(0.5);
    EXPECT_TRUE(test::eventually([&] { return !second.updates().isEmpty(); }));
    EXPECT_EQ(second.updates(), QStringList{u"application://example.tonearm.Tonearm.desktop 0.5"_s});
}

} // namespace tonearm
