// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/screens/aboutwindows/LicenceWindow.h"

#include "helpers/Await.h"
#include "helpers/Contents.h"
#include "helpers/Printing.h"
#include "helpers/Widgets.h"

#include <gtest/gtest.h>

#include <QDir>
#include <QFile>
#include <QFontMetricsF>
#include <QLabel>
#include <QListWidget>
#include <QPlainTextEdit>
#include <QTemporaryDir>
#include <QTextDocument>
#include <QThreadPool>

#include <memory>

namespace tonearm {

using namespace Qt::StringLiterals;
using namespace test;

namespace {

struct LicenceWindowTest : testing::Test
{
    ~LicenceWindowTest() override
    {
        window.reset();
        // What the window had under way ends by itself.
        QThreadPool::globalInstance()->waitForDone();
        QCoreApplication::processEvents();
    }

    void addThree()
    {
        add(u"GPL-3.txt"_s, "the third");
        add(u"GPL-2.txt"_s, "the second");
        add(u"README.txt"_s, "the notices");
    }

    void add(const QString &name, const QByteArray &contents)
    {
        QDir().mkpath(folder.filePath(u"Licenses"_s));
        writeFile(path(name), contents);
    }

    QString path(const QString &name) const { return folder.filePath(u"Licenses/"_s + name); }

    void open()
    {
        window = std::make_unique<LicenceWindow>(folder.path());
        ASSERT_TRUE(showActive(*window));
    }

    // Opens the window and waits for the first document.
    void openOn(const QString &firstText)
    {
        open();
        ASSERT_TRUE(eventually([this] { return window->findChild<QListWidget *>(); }));
        waitForText(firstText);
    }

    void waitForText(const QString &expected)
    {
        ASSERT_TRUE(eventually([&] { return text().toPlainText() == expected; }))
            << text().toPlainText().toStdString();
    }

    QListWidget &list() { return *window->findChild<QListWidget *>(); }

    QPlainTextEdit &text() { return *window->findChild<QPlainTextEdit *>(); }

    QStringList labels()
    {
        QStringList labels;
        for (int row = 0; row < list().count(); ++row)
            labels.append(list().item(row)->text());
        return labels;
    }

    QTemporaryDir folder;
    std::unique_ptr<LicenceWindow> window;
};

} // namespace

TEST_F(LicenceWindowTest, HasItsTitleAndSizes)
{
    addThree();
    openOn(u"the notices"_s);
    EXPECT_EQ(window->windowTitle(), u"Third-Party Licences"_s);
    EXPECT_EQ(window->size(), QSize(780, 620));
    EXPECT_EQ(window->minimumSize(), QSize(700, 520));
}

TEST_F(LicenceWindowTest, ListsTheDocumentsAndShowsTheFirst)
{
    addThree();
    openOn(u"the notices"_s);
    EXPECT_EQ(labels(), (QStringList{u"Notices"_s, u"GPL-2"_s, u"GPL-3"_s}));
    EXPECT_EQ(list().currentRow(), 0);
    EXPECT_EQ(window->content().selection, u"README"_s);
    EXPECT_EQ(window->content().documents.size(), 3);
}

TEST_F(LicenceWindowTest, ShowsTheDocumentThatIsSelected)
{
    addThree();
    openOn(u"the notices"_s);
    press(Qt::Key_Down);
    waitForText(u"the second"_s);
    EXPECT_EQ(window->content().selection, u"GPL-2"_s);
    EXPECT_EQ(accessibleNameOf(text()), u"GPL-2"_s);
    press(Qt::Key_Down);
    waitForText(u"the third"_s);
    EXPECT_EQ(window->windowTitle(), u"Third-Party Licences"_s);
}

TEST_F(LicenceWindowTest, EndsUpWithTheLastOfManySelections)
{
    addThree();
    openOn(u"the notices"_s);
    for (const int row : {1, 2, 0, 2, 1})
        list().setCurrentRow(row);
    waitForText(u"the second"_s);
    QThreadPool::globalInstance()->waitForDone();
    QCoreApplication::processEvents();
    EXPECT_EQ(text().toPlainText(), u"the second"_s);
}

TEST_F(LicenceWindowTest, ReadsADocumentWhenItIsSelected)
{
    addThree();
    openOn(u"the notices"_s);
    writeFile(path(u"GPL-2.txt"_s), "written since");
    list().setCurrentRow(1);
    waitForText(u"written since"_s);
}

TEST_F(LicenceWindowTest, SaysThatADocumentCannotBeRead)
{
    addThree();
    openOn(u"the notices"_s);
    ASSERT_TRUE(QFile::remove(path(u"GPL-2.txt"_s)));
    list().setCurrentRow(1);
    waitForText(u"\"GPL-2.txt\" could not be read: No such file or directory."_s);
    list().setCurrentRow(2);
    waitForText(u"the third"_s);
}

TEST_F(LicenceWindowTest, ShowsTextThatCanBeMarkedButNotChanged)
{
    addThree();
    openOn(u"the notices"_s);
    EXPECT_TRUE(text().isReadOnly());
    EXPECT_TRUE(text().textInteractionFlags() & Qt::TextSelectableByMouse);
    EXPECT_TRUE(text().textInteractionFlags() & Qt::TextSelectableByKeyboard);
    const QFontMetricsF metrics(text().font());
    EXPECT_EQ(metrics.horizontalAdvance(u'i'), metrics.horizontalAdvance(u'W')) << "monospaced";
    EXPECT_LT(text().font().pointSizeF(), window->font().pointSizeF());
    EXPECT_EQ(text().document()->documentMargin(), 16);
    text().setFocus();
    type(u"x"_s);
    EXPECT_EQ(text().toPlainText(), u"the notices"_s);
}

TEST_F(LicenceWindowTest, LeadsFromTheListToTheTextByTab)
{
    addThree();
    openOn(u"the notices"_s);
    EXPECT_TRUE(list().hasFocus());
    EXPECT_EQ(accessibleNameOf(list()), u"Licences"_s);
    EXPECT_EQ(accessibleNameOf(text()), u"Notices"_s);
    press(Qt::Key_Tab);
    EXPECT_TRUE(text().hasFocus());
    press(Qt::Key_Tab);
    EXPECT_TRUE(list().hasFocus());
}

TEST_F(LicenceWindowTest, SaysThatThereAreNone)
{
    open();
    EXPECT_TRUE(eventually([this] { return named<QLabel>(*window, u"No Licences Found"_s); }));
    EXPECT_TRUE(named<QLabel>(
        *window,
        u"This copy of Tonearm came without its licence texts. Installing it again should bring them back."_s));
    EXPECT_EQ(window->content(), LicenceWindowContent());
    EXPECT_EQ(window->windowTitle(), u"Third-Party Licences"_s);
}

TEST_F(LicenceWindowTest, SaysSoWithoutAResourceFolderToo)
{
    window = std::make_unique<LicenceWindow>(std::nullopt);
    ASSERT_TRUE(showActive(*window));
    EXPECT_TRUE(eventually([this] { return named<QLabel>(*window, u"No Licences Found"_s); }));
}

TEST_F(LicenceWindowTest, MayCloseWhileItLooksOrReads)
{
    addThree();
    window = std::make_unique<LicenceWindow>(folder.path());
    window.reset();
    openOn(u"the notices"_s);
    list().setCurrentRow(2);
    window.reset();
    QThreadPool::globalInstance()->waitForDone();
    QCoreApplication::processEvents();
    openOn(u"the notices"_s);
}

TEST_F(LicenceWindowTest, IsClosedByKeys)
{
    addThree();
    openOn(u"the notices"_s);
    press(Qt::Key_Escape);
    EXPECT_FALSE(window->isVisible());
    ASSERT_TRUE(showActive(*window));
    text().setFocus();
    press(Qt::Key_W, Qt::ControlModifier);
    EXPECT_FALSE(window->isVisible());
}

} // namespace tonearm
