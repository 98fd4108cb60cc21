// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/screens/settingswindow/SizeLimitRow.h"

#include "app/screens/elements/Bind.h"
#include "app/screens/settingswindow/SettingsPage.h"
#include "app/screens/settingswindow/SizeLimitBox.h"
#include "app/screens/settingswindow/Stepper.h"
#include "app/settings/AppSettings.h"

#include <QLabel>
#include <QVBoxLayout>

namespace tonearm {

using namespace Qt::StringLiterals;

namespace {

QString explanation()
{
    return u"Embedded artwork over this size is re-encoded as JPEG — dropping resolution only if compression "
           "alone isn't enough. Many players and car head units show nothing at all past roughly 600 KB. "
           "With shrinking off, oversized artwork is embedded as-is and flagged with a warning."_s;
}

} // namespace

SizeLimitRow::SizeLimitRow(AppSettings &settings, QWidget *parent)
    : QWidget(parent)
{
    auto *row = new QHBoxLayout;
    fill(row, settings);
    auto *column = new QVBoxLayout(this);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(explanationGap);
    column->addLayout(row);
    column->addWidget(makeExplanation(explanation(), this));
}

void SizeLimitRow::fill(QHBoxLayout *row, AppSettings &settings)
{
    const QString name = u"Size Limit"_s;
    auto *label = new QLabel(name, this);
    auto *box = new SizeLimitBox(settings, this);
    box->setAccessibleName(name);
    box->setAccessibleDescription(explanation());
    label->setBuddy(box);
    auto *stepper = new Stepper(name, this);
    connect(stepper, &Stepper::stepped, box, &SizeLimitBox::step);
    bind(
        stepper, [&settings] { return SizeLimitBox::canStep(settings, 1); }, &Stepper::setCanGoUp);
    bind(
        stepper, [&settings] { return SizeLimitBox::canStep(settings, -1); }, &Stepper::setCanGoDown);
    row->addWidget(label, 1);
    row->addWidget(box);
    row->addWidget(new QLabel(u"KB"_s, this));
    row->addWidget(stepper);
}

} // namespace tonearm
