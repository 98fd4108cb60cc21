// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/screens/menus/DiscCommands.h"

#include "app/screens/elements/Bind.h"
#include "workflow/AppModel.h"

#include <QMenu>

namespace tonearm {

using namespace Qt::StringLiterals;

namespace {

constexpr qsizetype several = 2;

void addOnlyDisc(QMenu &menu, AppModel &model)
{
    QAction *entry = menu.addAction(u"Load Audio C&D"_s, Qt::CTRL | Qt::Key_D, &menu, [&model] {
        if (const QList<DiscInfo> discs = model.detectedDiscs.value(); !discs.isEmpty())
            model.requestDisc(discs.first());
    });
    bind(
        entry, [&model] { return model.detectedDiscs.value().size(); },
        [](QAction *shown, qsizetype count) {
            shown->setEnabled(count == 1);
            shown->setVisible(count < several);
        });
}

// The entries before may be in use: the one that the user has just chosen loads its disc, which changes
// the list.
void removeEntries(QMenu &menu)
{
    for (QAction *entry : menu.actions()) {
        menu.removeAction(entry);
        entry->deleteLater();
    }
}

void fill(QMenu &menu, const QList<DiscInfo> &discs, AppModel &model)
{
    removeEntries(menu);
    for (const DiscInfo &disc : discs) {
        // Nothing in a name marks a key.
        const QString text = QString(disc.volumeName).replace(u'&', u"&&"_s);
        menu.addAction(text, &menu, [&model, disc] { model.requestDisc(disc); });
    }
}

void addChoiceOfDiscs(QMenu &menu, AppModel &model)
{
    QMenu *choice = menu.addMenu(u"Load Audio C&D"_s);
    bind(
        choice, [&model] { return model.detectedDiscs.value(); },
        [&model](QMenu *shown, const QList<DiscInfo> &discs) {
            const bool isNeeded = discs.size() >= several;
            shown->menuAction()->setVisible(isNeeded);
            fill(*shown, isNeeded ? discs : QList<DiscInfo>(), model);
        });
}

} // namespace

void addDiscCommands(QMenu &menu, AppModel &model)
{
    addOnlyDisc(menu, model);
    addChoiceOfDiscs(menu, model);
    QAction *eject = menu.addAction(u"E&ject Disc"_s, &menu, [&model] { model.ejectCurrentDisc(); });
    bind(
        eject, [&model] { return model.canEject(); }, &QAction::setEnabled);
}

} // namespace tonearm
