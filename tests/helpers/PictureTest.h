// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "helpers/Rendering.h"
#include "helpers/Widgets.h"

#include <gtest/gtest.h>

#include <QString>
#include <QWidget>

namespace tonearm::test {

/// Pictures of widgets for people to look at; the parameter says whether in dark.
class PictureTest : public testing::TestWithParam<bool>
{
protected:
    PictureTest()
        : m_scope(GetParam() ? darkPalette() : lightPalette())
    {
    }

    static QString suffixed(const QString &name)
    {
        return name + QLatin1String(GetParam() ? "-dark" : "-light");
    }

    /// Shows the widget, and keeps what it looks like under the name.
    static void keep(QWidget &widget, const QString &name)
    {
        ASSERT_TRUE(showActive(widget));
        EXPECT_NE(renderToPng(widget, suffixed(name), 2), QString());
    }

private:
    PaletteScope m_scope;
};

} // namespace tonearm::test
