// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "app/screens/elements/Banner.h"
#include "disc/DiscInfo.h"

#include <QList>

namespace tonearm {

class AppModel;
class DiscOffer;

/// Offers the audio CDs that are in the machine, a row for each.
class DiscBanner : public Banner
{
    Q_OBJECT

public:
    explicit DiscBanner(AppModel &model, QWidget *parent = nullptr);

private:
    void showDiscs(const QList<DiscInfo> &discs);
    void showOffers(const QList<DiscInfo> &discs);
    DiscOffer *takeOffer(QList<DiscOffer *> &offers, const DiscInfo &disc);
    void dismiss(DiscOffer *offer);

    AppModel &m_model;
    QList<DiscOffer *> m_offers;
};

} // namespace tonearm
