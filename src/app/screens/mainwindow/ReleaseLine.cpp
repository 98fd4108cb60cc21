// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/screens/mainwindow/ReleaseLine.h"

#include "app/screens/elements/Bind.h"
#include "app/screens/elements/ElidedLabel.h"
#include "app/screens/elements/IconView.h"
#include "app/screens/elements/ShowIfAny.h"
#include "app/screens/elements/TextStyle.h"
#include "workflow/AppModel.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>

namespace tonearm {

using namespace Qt::StringLiterals;

namespace {

constexpr int gap = 8;

struct ReleaseTexts
{
    QString line;
    QString detail;
    bool isChosen = false;

    bool operator==(const ReleaseTexts &) const = default;
};

ReleaseTexts textsOf(const AppModel &model)
{
    if (const std::optional<ReleaseInfo> release = model.selectedRelease.value())
        return {release->displayName(), release->detailLine(), true};
    const qsizetype count = model.searchResults.value().size();
    if (count == 0)
        return {};
    return {count == 1 ? u"1 release found — none chosen yet."_s
                       : u"%1 releases found — none chosen yet."_s.arg(count),
            {},
            false};
}

} // namespace

ReleaseLine::ReleaseLine(AppModel &model, QWidget *parent)
    : QWidget(parent)
{
    auto *disc = new IconView(IconName::disc, Tone::secondary, this);
    auto *line = new ElidedLabel(Qt::ElideRight, this);
    auto *detail = new ElidedLabel(Qt::ElideRight, this);
    applyTextStyle(detail, TextStyle::smallSecondary);
    auto *choose = new QPushButton(u"Choose Release…"_s, this);
    connect(choose, &QPushButton::clicked, this, [&model] { model.isShowingSearchResults = true; });

    auto *lines = new QVBoxLayout;
    lines->setSpacing(2);
    lines->addWidget(line);
    lines->addWidget(detail);
    auto *row = new QHBoxLayout(this);
    row->setContentsMargins(0, 0, 0, 0);
    row->setSpacing(gap);
    row->addWidget(disc);
    row->addLayout(lines, 1);
    row->addWidget(choose);

    bind(
        this, [&model] { return textsOf(model); },
        [disc, line, detail](ReleaseLine *shown, const ReleaseTexts &texts) {
            disc->setVisible(texts.isChosen);
            line->setText(texts.line);
            showIfAny(detail, texts.detail);
            shown->setVisible(!texts.line.isEmpty());
        });
}

} // namespace tonearm
