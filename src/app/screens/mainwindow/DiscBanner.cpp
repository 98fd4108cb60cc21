// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/screens/mainwindow/DiscBanner.h"

#include "app/screens/elements/Bind.h"
#include "app/screens/mainwindow/DiscOffer.h"
#include "workflow/AppModel.h"

#include <QVBoxLayout>

namespace tonearm {

namespace {

constexpr int gapBetweenOffers = 8;
constexpr BannerLook look{.tone = Tone::information, .tintOpacity = 0.08, .padding = {12, 10, 12, 10}};

} // namespace

DiscBanner::DiscBanner(AppModel &model, QWidget *parent)
    : Banner(look, parent)
    , m_model(model)
{
    content()->setSpacing(gapBetweenOffers);
    bind(
        this, [&model] { return model.detectedDiscs.value(); }, &DiscBanner::showDiscs);
}

// What leaves keeps its rows until it is gone.
void DiscBanner::showDiscs(const QList<DiscInfo> &discs)
{
    if (!discs.isEmpty()) {
        qDeleteAll(findChildren<DiscOffer *>());
        for (const DiscInfo &disc : discs)
            content()->addWidget(new DiscOffer(m_model, disc));
    }
    // What leaves takes no more keys.
    setEnabled(!discs.isEmpty());
    setShown(!discs.isEmpty());
}

} // namespace tonearm
