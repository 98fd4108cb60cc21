// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "app/screens/elements/TextStyle.h"
#include "metadata/MetadataSearchOutcome.h"

#include <QList>
#include <QWidget>

namespace tonearm {

/// What went wrong in a search, a line for each notice. Takes no room without any.
class NoticeList : public QWidget
{
    Q_OBJECT

public:
    explicit NoticeList(TextStyle style, QWidget *parent = nullptr);

    void setNotices(const QList<MetadataSearchOutcome::Notice> &notices);

private:
    TextStyle m_style;
};

} // namespace tonearm
