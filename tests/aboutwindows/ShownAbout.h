// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "app/screens/aboutwindows/AboutView.h"

#include "helpers/Await.h"
#include "helpers/ModelFixture.h"
#include "helpers/Printing.h"
#include "helpers/ScriptedTools.h"
#include "helpers/Widgets.h"

#include <gtest/gtest.h>

#include <QLabel>
#include <QList>
#include <QPushButton>
#include <QUrl>

#include <stdexcept>

namespace tonearm::test {

/// The About window over a model with tools that do as the test says. Not open at first.
class ShownAbout : public testing::Test
{
protected:
    template <typename Type> Type &find(const QString &name)
    {
        Type *found = named<Type>(view, name);
        if (!found)
            throw std::runtime_error("not shown, or not once: " + name.toStdString());
        return *found;
    }

    template <typename Type> bool shows(const QString &name) { return !allNamed<Type>(view, name).isEmpty(); }

    /// Opens the window and waits until what is to be known of the tools is known.
    void openAndWait()
    {
        ASSERT_TRUE(showActive(view));
        waitForChecks();
    }

    void waitForChecks()
    {
        ASSERT_TRUE(eventually([this] {
            return !model.ffmpegCheckTask.value() && !model.paranoiaCheckTask.value() &&
                   !std::holds_alternative<FFmpegChecking>(model.ffmpegStatus.value());
        }));
    }

    ScriptedTools tools;
    ModelFixture surroundings{{.tools = tools.location()}};
    AppModel &model = surroundings.model();
    QList<QUrl> openedLinks;
    AboutView view{model,
                   {.version = QStringLiteral("9.8.7"), .copyright = QStringLiteral("Copyright © Somebody")},
                   [this](const QUrl &url) { openedLinks.append(url); }};
};

} // namespace tonearm::test
