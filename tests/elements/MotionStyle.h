// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QProxyStyle>
#include <QWidget>

namespace tonearm::test {

/// A style that wants things to move, or wants them still, whatever the machine's own says.
class MotionStyle : public QProxyStyle
{
public:
    explicit MotionStyle(bool moves)
        : QProxyStyle(QStringLiteral("fusion"))
        , m_moves(moves)
    {
    }

    int styleHint(StyleHint hint, const QStyleOption *option, const QWidget *widget,
                  QStyleHintReturn *returnData) const override
    {
        if (hint == SH_Widget_Animation_Duration)
            return m_moves ? 200 : 0;
        return QProxyStyle::styleHint(hint, option, widget, returnData);
    }

private:
    bool m_moves;
};

} // namespace tonearm::test
