// SPDX-License-Identifier: GPL-3.0-or-later
// Pictures of the window with a menu open for people to look at.
#include "e2e/ShownWindow.h"

#include "helpers/PictureTest.h"

#include <QApplication>
#include <QDir>
#include <QMenu>
#include <QMenuBar>
#include <QPainter>

namespace tonearm {

using namespace Qt::StringLiterals;
using namespace test;

namespace {

class MenuPictures : public PictureTest
{
protected:
    // Opens a menu by its key; returns it.
    static QMenu *open(Qt::Key key)
    {
        press(key, Qt::AltModifier);
        return qobject_cast<QMenu *>(QApplication::activePopupWidget());
    }

    // The window as it is on a screen, with its menus in front.
    void keepWith(const QList<QMenu *> &menus, const QString &name)
    {
        constexpr double scale = 2;
        QImage picture = rendered(m_window.window(), scale);
        QPainter painter(&picture);
        for (QMenu *menu : menus)
            painter.drawImage(m_window.window().mapFromGlobal(menu->pos()), rendered(*menu, scale));
        painter.end();
        const QString path =
            QCoreApplication::applicationDirPath() + u"/../screens/"_s + suffixed(name) + u".png"_s;
        ASSERT_TRUE(QDir().mkpath(QFileInfo(path).path()));
        EXPECT_TRUE(picture.save(path));
    }

    ModelFixture m_surroundings;
    ShownWindow m_window{m_surroundings.model()};
};

DiscInfo disc(const QString &name)
{
    DiscInfo result;
    result.volumeName = name;
    result.volumeURL = QUrl::fromLocalFile(u"/media/"_s + name);
    return result;
}

} // namespace

TEST_P(MenuPictures, OfFile)
{
    m_surroundings->outputFolderURL = m_surroundings.url(u"out"_s);
    QMenu *menu = open(Qt::Key_F);
    ASSERT_TRUE(menu);
    keepWith({menu}, u"menu-file"_s);
}

TEST_P(MenuPictures, OfFileWithTwoDiscs)
{
    m_surroundings->detectedDiscs = QList{disc(u"The First Disc"_s), disc(u"Rock & Roll"_s)};
    QMenu *menu = open(Qt::Key_F);
    ASSERT_TRUE(menu);
    QTest::keyClick(menu, Qt::Key_D);
    auto *choice = qobject_cast<QMenu *>(QApplication::activePopupWidget());
    ASSERT_TRUE(choice && choice != menu);
    keepWith({menu, choice}, u"menu-discs"_s);
}

TEST_P(MenuPictures, OfEdit)
{
    m_window.fillIn(u"Artist"_s, u"The Artist"_s);
    m_window.box(u"Artist"_s).selectAll();
    QMenu *menu = open(Qt::Key_E);
    ASSERT_TRUE(menu);
    keepWith({menu}, u"menu-edit"_s);
}

INSTANTIATE_TEST_SUITE_P(LightAndDark, MenuPictures, testing::Bool(),
                         [](const auto &dark) { return dark.param ? "Dark" : "Light"; });

} // namespace tonearm
