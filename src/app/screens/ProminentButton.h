// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QPushButton>

namespace tonearm {

/// The one button that a section is there for, in the accent colour while it is enabled.
class ProminentButton : public QPushButton
{
    Q_OBJECT

public:
    explicit ProminentButton(const QString &text, QWidget *parent = nullptr);

protected:
    void changeEvent(QEvent *event) override;

private:
    void updateColours();

    bool m_isUpdating = false;
};

} // namespace tonearm
