// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/DesktopPanels.h"

#include "helpers/Await.h"
#include "helpers/Printing.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QFile>
#include <QFileDialog>
#include <QLabel>
#include <QTemporaryDir>

#include <algorithm>
#include <memory>
#include <optional>
#include <stop_token>

namespace tonearm {

using namespace Qt::StringLiterals;
using namespace test;

namespace {

QFileDialog *openDialog()
{
    QFileDialog *found = nullptr;
    for (QWidget *window : QApplication::topLevelWidgets())
        if (auto *dialog = qobject_cast<QFileDialog *>(window); dialog && dialog->isVisible())
            found = dialog;
    return found;
}

class DesktopPanelsTest : public testing::Test
{
protected:
    // Opens a panel; what is chosen in it comes later.
    QFileDialog *open(const OpenPanelRequest &request)
    {
        m_choosing.emplace(follow(request));
        return eventually([] { return openDialog() != nullptr; }) ? openDialog() : nullptr;
    }

    QCoro::Task<> follow(OpenPanelRequest request)
    {
        chosen = co_await m_panels.choose(std::move(request), stop.get_token());
        hasEnded = true;
    }

    QTemporaryDir folder;
    std::stop_source stop;
    std::optional<QUrl> chosen;
    bool hasEnded = false;

private:
    DesktopPanels m_panels;
    std::optional<QCoro::Task<>> m_choosing;
};

} // namespace

TEST_F(DesktopPanelsTest, OffersFilesOfTheKindsOnly)
{
    const QFileDialog *dialog = open({.title = u"Select Cover Art"_s,
                                      .prompt = u"Choose"_s,
                                      .extensions = {u"jpg"_s, u"png"_s},
                                      .startFolder = QUrl::fromLocalFile(folder.path()),
                                      .offersNewFolders = false});
    ASSERT_NE(dialog, nullptr);
    EXPECT_EQ(dialog->windowTitle(), u"Select Cover Art"_s);
    EXPECT_EQ(dialog->labelText(QFileDialog::Accept), u"Choose"_s);
    EXPECT_EQ(dialog->fileMode(), QFileDialog::ExistingFile);
    EXPECT_EQ(dialog->nameFilters(), QStringList{u"JPG, PNG files (*.jpg *.JPG *.Jpg *.png *.PNG *.Png)"_s});
    EXPECT_TRUE(dialog->testOption(QFileDialog::HideNameFilterDetails));
    EXPECT_EQ(dialog->directory().absolutePath(), folder.path());
    EXPECT_TRUE(dialog->testOption(QFileDialog::ReadOnly)) << "makes no folder";
    EXPECT_TRUE(dialog->isModal());
    stop.request_stop();
    ASSERT_TRUE(eventually([this] { return hasEnded; }));
}

TEST_F(DesktopPanelsTest, OffersFoldersWithAMessage)
{
    const OpenPanelRequest request{.title = u"Choose Folder"_s,
                                   .prompt = u"Open"_s,
                                   .target = OpenPanelRequest::Target::folder,
                                   .message = u"Choose a folder."_s};
    const QFileDialog *dialog = open(request);
    ASSERT_NE(dialog, nullptr);
    EXPECT_EQ(dialog->fileMode(), QFileDialog::Directory);
    EXPECT_TRUE(dialog->testOption(QFileDialog::ShowDirsOnly));
    EXPECT_FALSE(dialog->testOption(QFileDialog::ReadOnly));
    const QList<QLabel *> labels = dialog->findChildren<QLabel *>();
    EXPECT_TRUE(std::any_of(labels.begin(), labels.end(), [&](const QLabel *label) {
        return label->text() == request.message && label->isVisible();
    }));
    stop.request_stop();
    ASSERT_TRUE(eventually([this] { return hasEnded; }));
}

TEST_F(DesktopPanelsTest, GivesTheFileThatIsChosen)
{
    QFile file(folder.filePath(u"A.MKV"_s));
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.close();
    QFileDialog *dialog = open({.title = u"Select"_s,
                                .prompt = u"Choose"_s,
                                .extensions = {u"mkv"_s},
                                .startFolder = QUrl::fromLocalFile(folder.path())});
    ASSERT_NE(dialog, nullptr);
    dialog->selectFile(u"A.MKV"_s);
    static_cast<QDialog *>(dialog)->accept();
    ASSERT_TRUE(eventually([this] { return hasEnded; }));
    EXPECT_EQ(chosen, QUrl::fromLocalFile(file.fileName()));
    EXPECT_EQ(openDialog(), nullptr);
}

TEST_F(DesktopPanelsTest, GivesNothingWhenItIsDismissed)
{
    QFileDialog *dialog = open({.title = u"Select"_s, .prompt = u"Choose"_s, .extensions = {u"mkv"_s}});
    ASSERT_NE(dialog, nullptr);
    dialog->reject();
    ASSERT_TRUE(eventually([this] { return hasEnded; }));
    EXPECT_EQ(chosen, std::nullopt);
}

TEST_F(DesktopPanelsTest, IsDismissedByAStop)
{
    ASSERT_NE(open({.title = u"Select"_s, .prompt = u"Choose"_s, .extensions = {u"mkv"_s}}), nullptr);
    stop.request_stop();
    ASSERT_TRUE(eventually([this] { return hasEnded; }));
    EXPECT_EQ(chosen, std::nullopt);
    EXPECT_EQ(openDialog(), nullptr);
}

TEST_F(DesktopPanelsTest, GivesNothingWhenItsWindowGoes)
{
    auto window = std::make_unique<QWidget>();
    window->show();
    window->activateWindow();
    ASSERT_TRUE(eventually([&] { return QApplication::activeWindow() == window.get(); }));
    const QFileDialog *dialog = open({.title = u"Select"_s, .prompt = u"Choose"_s, .extensions = {u"mkv"_s}});
    ASSERT_NE(dialog, nullptr);
    EXPECT_EQ(dialog->parentWidget(), window.get());
    window.reset();
    ASSERT_TRUE(eventually([this] { return hasEnded; }));
    EXPECT_EQ(chosen, std::nullopt);
}

} // namespace tonearm
