// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "app/screens/elements/Spinner.h"

#include <QAbstractButton>

namespace tonearm {

/// A spinner on a button, before its text or, where it has none, in its middle. Belongs to the
/// button.
class ButtonSpinner : public Spinner
{
    Q_OBJECT

public:
    explicit ButtonSpinner(QAbstractButton *button);

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    void takePlace();

    QAbstractButton *m_button;
};

} // namespace tonearm
