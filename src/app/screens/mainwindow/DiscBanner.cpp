// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/screens/mainwindow/DiscBanner.h"

#include "app/screens/elements/Bind.h"
#include "app/screens/mainwindow/DiscOffer.h"
#include "workflow/AppModel.h"

#include <QVBoxLayout>

#include <algorithm>
#include <utility>

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
    if (!discs.isEmpty())
        showOffers(discs);
    // What leaves takes no more keys.
    setEnabled(!discs.isEmpty());
    setShown(!discs.isEmpty());
}

// A disc that stays keeps its row, and with it the focus and a press that has begun.
void DiscBanner::showOffers(const QList<DiscInfo> &discs)
{
    QList<DiscOffer *> before = std::exchange(m_offers, {});
    for (const DiscInfo &disc : discs)
        m_offers.append(takeOffer(before, disc));
    for (DiscOffer *offer : before)
        dismiss(offer);
    QWidget *last = this;
    for (qsizetype index = 0; index < m_offers.size(); ++index) {
        const int place = static_cast<int>(index);
        if (content()->indexOf(m_offers[index]) != place)
            content()->insertWidget(place, m_offers[index]);
        last = m_offers[index]->followInTabOrder(last);
    }
}

DiscOffer *DiscBanner::takeOffer(QList<DiscOffer *> &offers, const DiscInfo &disc)
{
    const auto found = std::find_if(offers.begin(), offers.end(),
                                    [&disc](const DiscOffer *offer) { return offer->disc() == disc; });
    return found == offers.end() ? new DiscOffer(m_model, disc) : offers.takeAt(found - offers.begin());
}

// Not deleted here: the row's own button may be what set this off.
void DiscBanner::dismiss(DiscOffer *offer)
{
    offer->hide();
    content()->removeWidget(offer);
    offer->deleteLater();
}

} // namespace tonearm
