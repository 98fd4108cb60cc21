// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "app/screens/elements/Banner.h"

namespace tonearm {

class AppModel;
class IconLabel;

/// Says that the audio tools are missing, and for a moment that they have been found again.
class FFmpegBanner : public Banner
{
    Q_OBJECT

public:
    explicit FFmpegBanner(AppModel &model, QWidget *parent = nullptr);

private:
    enum class Message { none, missing, found };

    QWidget *makeText();
    QWidget *makeCheckAgain();
    Message message() const;
    void showMessage(Message message);

    AppModel &m_model;
    IconLabel *m_title;
};

} // namespace tonearm
