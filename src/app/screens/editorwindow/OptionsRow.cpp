// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/screens/editorwindow/OptionsRow.h"

#include "app/screens/editorwindow/WarningLabel.h"
#include "app/screens/elements/Bind.h"
#include "app/screens/elements/IconLabel.h"
#include "app/screens/elements/TextStyle.h"
#include "app/screens/elements/Tooltip.h"
#include "tageditor/MetadataEditorModel.h"

#include <QCheckBox>
#include <QHBoxLayout>

namespace tonearm {

using namespace Qt::StringLiterals;

namespace {

constexpr int gap = 12;

} // namespace

OptionsRow::OptionsRow(MetadataEditorModel &model, QWidget *parent)
    : QWidget(parent)
    , m_toggle(new QCheckBox(u"Save even if some tags can't be kept"_s, this))
{
    m_toggle->setFont(fontOf(TextStyle::callout, font()));
    m_toggle->setIcon(icon(IconName::warning));
    setLongTooltip(
        m_toggle, u"Some files — .m4a especially — carry identifiers this app can read but can't write back, "
                  u"such as MusicBrainz IDs or ReplayGain values. Nothing that plays a file uses them.\n\n"
                  u"Off: a file like that is held back and you're asked what to do.\n"
                  u"On: it's saved and those tags go, and the result says which went.\n\n"
                  u"This resets when the window is closed."_s);
    bind(
        m_toggle, [&model] { return model.dropsUnwritableTags.value(); }, &QCheckBox::setChecked);
    connect(m_toggle, &QCheckBox::clicked, this, [&model](bool on) { model.dropsUnwritableTags = on; });

    auto *row = new QHBoxLayout(this);
    row->setContentsMargins(0, 0, 0, 0);
    row->setSpacing(gap);
    row->addWidget(m_toggle);
    row->addWidget(makeWarningLabel(
                       TextStyle::small, [&model] { return model.droppedTagSummary(); }, this),
                   1);
    row->addStretch(0);
}

} // namespace tonearm
