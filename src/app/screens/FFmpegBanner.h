// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "app/screens/Banner.h"

namespace tonearm {

class AppModel;

/// Says that the audio tools are missing, and for a moment that they have been found again.
class FFmpegBanner : public Banner
{
    Q_OBJECT

public:
    explicit FFmpegBanner(AppModel &model, QWidget *parent = nullptr);

private:
    QWidget *makeText();
    QWidget *makeCheckAgain();

    AppModel &m_model;
};

} // namespace tonearm
