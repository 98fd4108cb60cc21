// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/screens/elements/Banner.h"
#include "app/screens/elements/DropWell.h"
#include "app/screens/elements/IconLabel.h"
#include "app/screens/elements/SectionBox.h"
#include "app/screens/elements/Spinner.h"
#include "app/screens/elements/TextStyle.h"
#include "elements/AllIcons.h"
#include "helpers/PictureTest.h"
#include "helpers/Widgets.h"

#include <gtest/gtest.h>

#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>

// Pictures of the blocks for people to look at, light and dark.
namespace tonearm {

using namespace Qt::StringLiterals;
using namespace test;

namespace {

class Pictures : public PictureTest
{
};

void addIcons(QBoxLayout *column, const QSize &size, bool enabled)
{
    auto *row = new QHBoxLayout;
    for (const IconName name : allIcons()) {
        auto *label = new QPushButton;
        label->setFlat(true);
        label->setEnabled(enabled);
        label->setIconSize(size);
        label->setIcon(icon(name));
        row->addWidget(label);
    }
    column->addLayout(row);
}

void fillBanner(Banner *banner, IconName name, Tone tone, const QString &title, const QString &detail)
{
    auto *row = new QHBoxLayout;
    auto *texts = new QVBoxLayout;
    auto *titleLabel = new IconLabel(name, tone);
    titleLabel->setText(title);
    auto *detailLabel = new QLabel(detail);
    applyTextStyle(detailLabel, TextStyle::smallSecondary);
    texts->addWidget(titleLabel);
    texts->addWidget(detailLabel);
    row->addLayout(texts, 1);
    row->addWidget(new QPushButton(u"Check Again"_s));
    banner->content()->addLayout(row);
    banner->setShown(true);
}

} // namespace

INSTANTIATE_TEST_SUITE_P(LightAndDark, Pictures, testing::Bool());

TEST_P(Pictures, OfIcons)
{
    QWidget window;
    auto *column = new QVBoxLayout(&window);
    addIcons(column, QSize(16, 16), true);
    addIcons(column, QSize(20, 20), true);
    addIcons(column, QSize(48, 48), true);
    addIcons(column, QSize(20, 20), false);
    keep(window, u"icons"_s);
}

TEST_P(Pictures, OfLabelsAndSpinners)
{
    QWidget window;
    auto *column = new QVBoxLayout(&window);
    auto *notice = new IconLabel(IconName::gearWarning, Tone::warning);
    notice->setText(
        u"Discogs isn't set up, so only MusicBrainz was searched. Add a token in the settings to search both."_s);
    applyTextStyle(notice, TextStyle::small);
    column->addWidget(notice);
    auto *success = new IconLabel(IconName::success, Tone::success);
    success->setText(u"Wrote 12 tracks to Album."_s);
    column->addWidget(success);
    auto *disc = new IconLabel(IconName::disc);
    disc->setText(u"Artist — Album (1999)"_s);
    column->addWidget(disc);
    auto *disabled = new IconLabel(IconName::warning, Tone::warning);
    disabled->setText(u"A warning that is disabled"_s);
    disabled->setEnabled(false);
    column->addWidget(disabled);
    auto *caption = new QLabel(u"Song titles are used for both the FLAC tags and the filenames."_s);
    applyTextStyle(caption, TextStyle::smallSecondary);
    column->addWidget(caption);
    column->addWidget(new Spinner);
    column->addWidget(new Spinner(nullptr, 32));
    window.resize(420, column->totalHeightForWidth(420));
    keep(window, u"labels"_s);
}

TEST_P(Pictures, OfASectionWithWells)
{
    QWidget window;
    auto *column = new QVBoxLayout(&window);
    auto *section = new SectionBox(1, u"Source File"_s);
    auto *wells = new QHBoxLayout;
    auto *input = new DropWell(u"Input file drop area"_s, [](const QUrl &) { return true; });
    input->setLabel(u"Drag an .mkv file here"_s);
    auto *output = new DropWell(u"Output folder drop area"_s, [](const QUrl &) { return true; });
    output->setIcon(IconName::folder);
    output->setLabel(
        u"A folder with a name that is a good deal longer than its well is wide, as names are"_s);
    auto *targeted = new DropWell(u"Other drop area"_s, [](const QUrl &) { return true; });
    targeted->setIcon(IconName::disc);
    targeted->setLabel(u"Targeted"_s);
    for (DropWell *well : {input, output, targeted})
        wells->addWidget(well);
    section->content()->addLayout(wells);
    section->content()->addWidget(new QPushButton(icon(IconName::encode), u"Select Input File…"_s));
    column->addWidget(section);
    window.resize(820, 10);
    ASSERT_TRUE(showActive(window));
    dragOver(*targeted, {QUrl::fromLocalFile(u"/a.mkv"_s)});
    keep(window, u"section"_s);
}

TEST_P(Pictures, OfBanners)
{
    QWidget window;
    auto *column = new QVBoxLayout(&window);
    auto *missing = new Banner({.tone = Tone::warning});
    fillBanner(missing, IconName::warning, Tone::warning, u"Tonearm's audio tools are missing"_s,
               u"ffmpeg wasn't found in the program's folder."_s);
    auto *found = new Banner({.tone = Tone::success});
    fillBanner(found, IconName::success, Tone::success, u"Audio tools are ready"_s, u"ffmpeg 5.1.6"_s);
    auto *disc = new Banner({.tone = Tone::information, .tintOpacity = 0.08, .padding = {12, 10, 12, 10}});
    fillBanner(disc, IconName::disc, Tone::information, u"Audio CD detected — Album"_s,
               u"12 tracks, 45:12"_s);
    for (Banner *banner : {missing, found, disc})
        column->addWidget(banner);
    column->addStretch();
    window.resize(820, 10);
    keep(window, u"banners"_s);
}

} // namespace tonearm
