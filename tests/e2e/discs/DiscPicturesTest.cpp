// SPDX-License-Identifier: GPL-3.0-or-later
// Pictures of the window with discs for people to look at.
#include "e2e/discs/ShownDisc.h"

#include "helpers/Printing.h"
#include "helpers/Rendering.h"

namespace tonearm {

using namespace Qt::StringLiterals;
using namespace test;

namespace {

struct DiscPictures : testing::WithParamInterface<bool>, DiscWindowTest
{
    void keepWindow(const QString &state, const QSize &size = {940, 940})
    {
        window.window().resize(size);
        ShownWindow::settle();
        const QString name =
            u"window-%1-%2x%3"_s.arg(state, QString::number(size.width()), QString::number(size.height()));
        EXPECT_NE(renderToPng(window.window(), name + (GetParam() ? u"-dark"_s : u"-light"_s)), QString());
    }

    void waitForOffer(const QString &name)
    {
        ASSERT_TRUE(eventually([&] { return isOffered(window.window(), name); }));
    }

    PaletteScope palette{GetParam() ? darkPalette() : lightPalette()};
};

} // namespace

TEST_P(DiscPictures, OfOneOffer)
{
    surroundings.findTools();
    put({shownDisc(u"Court and Spark"_s)});
    waitForOffer(u"Court and Spark"_s);
    window.window().findChild<DiscBanner *>()->findChild<QPushButton *>()->setFocus(Qt::TabFocusReason);
    keepWindow(u"one-disc"_s);
}

TEST_P(DiscPictures, OfTwoOffers)
{
    surroundings.findTools();
    const QString longName = u"The Complete Symphonies, Recorded Live in the Great Hall, with the Overtures "
                             u"and All Concertos (Anniversary Edition)"_s;
    put({shownDisc(u"第五交響曲"_s), shownDisc(longName)});
    waitForOffer(u"第五交響曲"_s);
    keepWindow(u"two-discs"_s);
    keepWindow(u"two-discs"_s, {820, 900});
}

TEST_P(DiscPictures, OfALoadedDisc)
{
    surroundings.findTools();
    surroundings.settings().setEjectDiscAfterRipping(true);
    load();
    window.waitUntilUndisturbed();
    keepWindow(u"disc-loaded"_s);
    model.trackVerifications =
        QMap<qint64, RipVerification>{{0, RipVerification::verified}, {1, RipVerification::mismatched}};
    EncodingCompletion completion;
    completion.fileCount = 2;
    model.completion = completion;
    model.currentState = WorkflowState::Kind::complete;
    keepWindow(u"disc-finished"_s);
}

INSTANTIATE_TEST_SUITE_P(LightAndDark, DiscPictures, testing::Bool(),
                         [](const auto &dark) { return dark.param ? "Dark" : "Light"; });

} // namespace tonearm
