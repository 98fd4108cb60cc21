// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/screens/editorwindow/EditorArtworkColumn.h"

#include "app/screens/elements/ArtworkWell.h"
#include "app/screens/elements/Bind.h"
#include "app/screens/elements/IconLabel.h"
#include "app/screens/elements/ShowIfAny.h"
#include "app/screens/elements/TextStyle.h"
#include "app/screens/elements/Tooltip.h"
#include "tageditor/ArtworkViewer.h"
#include "tageditor/MetadataEditorModel.h"

#include <QCheckBox>
#include <QMenu>
#include <QVBoxLayout>

namespace tonearm {

using namespace Qt::StringLiterals;

namespace {

ArtworkWellContent contentOf(const EditorArtworkState &state)
{
    switch (state.kind) {
    case EditorArtworkState::Kind::image:
        return {ArtworkWellContent::Image{state.picture}};
    case EditorArtworkState::Kind::note:
        return {ArtworkWellContent::Empty{state.text}};
    case EditorArtworkState::Kind::warning:
        return {ArtworkWellContent::Conflicting{state.text}};
    case EditorArtworkState::Kind::loading:
        return {ArtworkWellContent::Loading{u"Reading artwork…"_s}};
    }
    Q_UNREACHABLE();
}

void showAvailability(QCheckBox *toggle, bool isAvailable)
{
    toggle->setEnabled(isAvailable);
    setLongTooltip(toggle, isAvailable
                               ? u"Re-encode the embedded artwork of the selected files that are over the "
                                 u"limit, and shrink any image you choose to the same limit."_s
                               : u"None of the selected files have artwork over the limit."_s);
}

} // namespace

EditorArtworkColumn::EditorArtworkColumn(MetadataEditorModel &model, ArtworkViewer &viewer, QWidget *parent)
    : QWidget(parent)
    , m_model(model)
    , m_viewer(viewer)
{
    setFixedWidth(ArtworkColumn::width);
    auto *column = new QVBoxLayout(this);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(ArtworkColumn::gap);
    column->addWidget(makeWell(), 0, Qt::AlignHCenter);
    column->addWidget(makeCaption(), 0, Qt::AlignHCenter);
    column->addWidget(makeToggle(), 0, Qt::AlignHCenter);
    column->addStretch(1);
}

QWidget *EditorArtworkColumn::makeWell()
{
    auto *well = new ArtworkWell(
        ArtworkColumn::wellSide, [this](const QUrl &url) { return m_model.acceptImage(url); },
        [this](QMenu &menu) { fillMenu(menu); }, this);
    well->setToolTip(plainTooltip(
        u"Drag a JPEG or PNG here, or right-click to choose, view or remove the artwork of the selected files"_s));
    bind(
        well, [this] { return contentOf(m_model.artworkState()); }, &ArtworkWell::setContent);
    return well;
}

QWidget *EditorArtworkColumn::makeCaption()
{
    auto *caption = new IconLabel(IconName::picture, Tone::secondary, this);
    caption->setWordWrap(false);
    applyTextStyle(caption, TextStyle::small);
    bind(
        caption, [this] { return m_model.artworkCaption(); }, showIfAny);
    return caption;
}

QWidget *EditorArtworkColumn::makeToggle()
{
    auto *toggle = new QCheckBox(this);
    toggle->setFont(fontOf(TextStyle::small, font()));
    bind(
        toggle, [this] { return m_model.optimizeLabel(); }, &QCheckBox::setText);
    bind(
        toggle, [this] { return m_model.isOptimizing(); }, &QCheckBox::setChecked);
    bind(
        toggle, [this] { return m_model.hasArtworkOverBudget(); }, showAvailability);
    connect(toggle, &QCheckBox::clicked, this, [this](bool on) { m_model.setOptimizing(on); });
    return toggle;
}

void EditorArtworkColumn::fillMenu(QMenu &menu)
{
    QAction *choose = menu.addAction(u"Choose…"_s, this, [this] { m_model.chooseArtwork(); });
    choose->setEnabled(!m_model.selectedPlaces().isEmpty());
    menu.addSeparator();
    QAction *viewing = menu.addAction(u"View Artwork"_s, this, [this] { view(); });
    viewing->setEnabled(m_model.artworkForViewer().has_value());
    QAction *remove = menu.addAction(u"Remove"_s, this, [this] { m_model.removeArtwork(); });
    remove->setEnabled(m_model.canRemoveArtwork());
}

void EditorArtworkColumn::view()
{
    const std::optional<ViewableArtwork> artwork = m_model.artworkForViewer();
    if (!artwork)
        return;
    // The image goes first and comes last, so that its window never shows it with another one's size.
    m_viewer.image = std::nullopt;
    m_viewer.pixelWidth = artwork->pixelWidth;
    m_viewer.pixelHeight = artwork->pixelHeight;
    m_viewer.summary = artwork->caption;
    m_viewer.image = artwork->image;
    Q_EMIT viewingRequested();
}

} // namespace tonearm
