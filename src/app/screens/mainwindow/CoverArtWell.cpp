// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/screens/mainwindow/CoverArtWell.h"

#include "app/screens/elements/ArtworkWell.h"
#include "app/screens/elements/Bind.h"
#include "app/screens/elements/IconLabel.h"
#include "app/screens/elements/ShowIfAny.h"
#include "app/screens/elements/TextStyle.h"
#include "workflow/AppModel.h"

#include <QMenu>
#include <QVBoxLayout>

namespace tonearm {

using namespace Qt::StringLiterals;

namespace {

ArtworkWellContent contentOf(const AppModel &model)
{
    const bool isComing = model.isFetchingArtwork.value() || model.isPreparingCoverArt.value();
    if (const std::optional<QImage> picture = model.coverArtPreview.value())
        return {ArtworkWellContent::Image{*picture, isComing}};
    if (isComing)
        return {ArtworkWellContent::Loading{}};
    return {ArtworkWellContent::Empty{u"Cover art"_s}};
}

} // namespace

CoverArtWell::CoverArtWell(AppModel &model, QWidget *parent)
    : QWidget(parent)
    , m_model(model)
{
    setFixedWidth(ArtworkColumn::width);
    auto *column = new QVBoxLayout(this);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(ArtworkColumn::gap);
    column->addWidget(makeWell(), 0, Qt::AlignHCenter);
    column->addWidget(makeSummary());
    column->addStretch(1);
}

QWidget *CoverArtWell::makeWell()
{
    auto *well = new ArtworkWell(
        ArtworkColumn::wellSide, [this](const QUrl &url) { return m_model.useCoverArtFile(url); },
        [this](QMenu &menu) { fillMenu(menu); }, this);
    well->setToolTip(u"Drag a JPEG or PNG here, or right-click to choose, download or view the artwork"_s);
    bind(
        well, [this] { return contentOf(m_model); }, &ArtworkWell::setContent);
    return well;
}

QWidget *CoverArtWell::makeSummary()
{
    auto *summary = new QWidget(this);
    auto *column = new QVBoxLayout(summary);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(ArtworkColumn::gap);
    auto *caption = new IconLabel(IconName::picture, Tone::secondary, summary);
    applyTextStyle(caption, TextStyle::small);
    bind(
        caption, [this] { return m_model.coverArtCaption(); }, showIfAny);
    auto *warning = new IconLabel(IconName::warning, Tone::warning, summary);
    applyTextStyle(warning, TextStyle::small);
    bind(
        warning, [this] { return m_model.coverArtWarning(); }, showIfAny);
    column->addWidget(caption);
    column->addWidget(warning);
    return summary;
}

void CoverArtWell::fillMenu(QMenu &menu)
{
    menu.addAction(u"Choose…"_s, this, [this] { m_model.chooseCoverArt(); });
    QAction *fetch = menu.addAction(m_model.fetchArtworkTitle(), this, [this] { m_model.fetchArtwork(); });
    fetch->setEnabled(m_model.canFetchArtwork());
    menu.addSeparator();
    QAction *view = menu.addAction(u"View Artwork"_s, this, &CoverArtWell::viewingRequested);
    view->setEnabled(m_model.coverArtPreview.value().has_value());
    QAction *remove = menu.addAction(u"Remove"_s, this, [this] { m_model.clearCoverArt(); });
    remove->setEnabled(m_model.coverArt.value().has_value());
}

} // namespace tonearm
