// SPDX-License-Identifier: GPL-3.0-or-later
#include "menus/ShownMenus.h"

#include "helpers/Printing.h"

#include <QAccessible>
#include <QSet>
#include <QSignalSpy>
#include <QTest>

namespace tonearm {

using namespace Qt::StringLiterals;
using namespace test;

namespace {

struct MenuBarTest : ShownMenus
{
    // The keys marked in the texts of some entries.
    static QList<QChar> marks(const QList<QAction *> &entries)
    {
        QList<QChar> keys;
        for (const QAction *entry : entries) {
            const qsizetype mark = entry->text().indexOf(u'&');
            if (!entry->isSeparator() && entry->isVisible())
                keys.append(mark < 0 ? QChar(u' ') : entry->text().at(mark + 1).toLower());
        }
        return keys;
    }

    static void expectKeyForEach(const QList<QAction *> &entries)
    {
        const QList<QChar> keys = marks(entries);
        EXPECT_FALSE(keys.contains(u' '));
        EXPECT_EQ(QSet<QChar>(keys.begin(), keys.end()).size(), keys.size());
    }
};

} // namespace

TEST_F(MenuBarTest, HasTheseMenus)
{
    QStringList titles;
    QAccessibleInterface *interface = QAccessible::queryAccessibleInterface(bar);
    for (int index = 0; index < interface->childCount(); ++index)
        titles.append(interface->child(index)->text(QAccessible::Name));
    EXPECT_EQ(titles, (QStringList{u"File"_s, u"Edit"_s, u"Tools"_s, u"Help"_s}));
}

TEST_F(MenuBarTest, HasAKeyOfItsOwnForEachMenuAndEntry)
{
    expectKeyForEach(bar->actions());
    for (const QAction *title : bar->actions())
        expectKeyForEach(title->menu()->actions());
}

TEST_F(MenuBarTest, HasTheEditorAmongTheTools)
{
    EXPECT_EQ(entriesOf(menu(u"Tools"_s)), QStringList{u"Edit Metadata…"_s});
    const QSignalSpy requested(bar, &MenuBar::editorRequested);
    EXPECT_EQ(keysOf(entry(u"Edit Metadata…"_s)), QString());
    EXPECT_TRUE(entry(u"Edit Metadata…"_s).isEnabled());
    entry(u"Edit Metadata…"_s).trigger();
    EXPECT_EQ(requested.size(), 1);
}

TEST_F(MenuBarTest, HelpsAndTellsAboutTheProgram)
{
    EXPECT_EQ(entriesOf(menu(u"Help"_s)), (QStringList{u"Tonearm Help"_s, u"About Tonearm"_s}));
    const QSignalSpy help(bar, &MenuBar::helpRequested);
    const QSignalSpy about(bar, &MenuBar::aboutRequested);
    QTest::keyClick(&window, Qt::Key_F1);
    EXPECT_EQ(help.size(), 1);
    EXPECT_EQ(keysOf(entry(u"About Tonearm"_s)), QString());
    entry(u"About Tonearm"_s).trigger();
    EXPECT_EQ(about.size(), 1);
}

TEST_F(MenuBarTest, ClosesAMenuWhoseEntryWasChosenFromOutside)
{
    openMenu(u"Help"_s);
    entry(u"About Tonearm"_s).trigger();
    EXPECT_FALSE(menu(u"Help"_s).isVisible());
}

} // namespace tonearm
