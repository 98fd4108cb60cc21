// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "app/screens/settingswindow/SettingsView.h"

#include "app/settings/AppSettings.h"
#include "app/settings/SettingsStore.h"
#include "helpers/Await.h"
#include "helpers/Contents.h"
#include "helpers/FakePanels.h"
#include "helpers/Printing.h"
#include "helpers/Widgets.h"

#include <gtest/gtest.h>

#include <QLabel>
#include <QPushButton>
#include <QTabWidget>
#include <QTemporaryDir>

#include <memory>
#include <stdexcept>

namespace tonearm::test {

/// The settings' window over settings of its own.
class ShownSettings : public testing::Test
{
protected:
    ShownSettings() { open(); }

    ~ShownSettings() override
    {
        close();
        // What a closed window still had under way.
        EXPECT_TRUE(eventually([this] { return panels.openCount() == 0; }));
    }

    /// Opens a window in place of the one that is open.
    void open()
    {
        m_view = std::make_unique<SettingsView>(settings, panels);
        EXPECT_TRUE(showActive(*m_view));
    }

    /// Closes it as the application does, for good.
    void close() { m_view.reset(); }

    SettingsView &view() { return *m_view; }

    QTabWidget &tabs() { return *m_view->findChild<QTabWidget *>(); }

    void showTab(const QString &title)
    {
        for (int index = 0; index < tabs().count(); ++index)
            if (tabs().tabText(index) == title)
                tabs().setCurrentIndex(index);
        EXPECT_EQ(tabs().tabText(tabs().currentIndex()), title);
    }

    /// What the open tab shows under a name; fails the test unless it is there once.
    template <typename Type> Type &find(const QString &name)
    {
        Type *found = named<Type>(*m_view, name);
        if (!found)
            throw std::runtime_error("not shown, or not once: " + name.toStdString());
        return *found;
    }

    template <typename Type> bool shows(const QString &name)
    {
        return !allNamed<Type>(*m_view, name).isEmpty();
    }

    QString settingsFile() const { return m_folder.filePath(QStringLiteral("settings.json")); }

    QString path(const QString &name) const { return m_folder.filePath(name); }

private:
    QTemporaryDir m_folder;

protected:
    SettingsStore store{settingsFile()};
    AppSettings settings{store};
    FakePanels panels;

private:
    std::unique_ptr<SettingsView> m_view;
};

} // namespace tonearm::test
