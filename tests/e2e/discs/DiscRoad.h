// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "app/TonearmApp.h"
#include "helpers/Borrowed.h"
#include "helpers/DiscImage.h"
#include "helpers/DrivesStandIn.h"
#include "helpers/Mounting.h"
#include "helpers/PrivateBus.h"
#include "helpers/ReleasePages.h"
#include "helpers/Widgets.h"

#include <gtest/gtest.h>

#include <QTemporaryDir>

#include <optional>
#include <stdexcept>

namespace tonearm::test {

/// The whole application on a machine of its own: a system bus with one empty drive, folders, and a server
/// for the online services. Its window is used as a person uses it.
class DiscRoad : public testing::Test
{
protected:
    void SetUp() override;

    /// Starts the application with these settings, and waits for its window and tools.
    void start(bool isSecure);

    /// An image with a sound that every reader takes for one, and where the release of its ID is found.
    DiscImage image(const QString &name, ImageRecipe recipe);

    /// The ID of an image, by libdiscid.
    static QString discIDOf(const DiscImage &image);

    /// Has the server know a disc as the second of three, with these titles.
    void addRelease(const QString &discID, const QStringList &titles);

    void insert(const DiscImage &image);

    /// Waits for the banner's offer, takes it, and waits for the lookup's end.
    void takeOffer(const QString &volumeName);

    /// Takes the release that the sheet highlights.
    void takeRelease();

    /// Closes the sheet without a release.
    void closeSheet();

    void startJob();

    /// Starts a job and waits until it is complete.
    void runJob();

    /// A control of the main window; throws if it isn't there.
    template <typename Type> Type &find(const QString &name)
    {
        auto *found = named<Type>(m_app->mainWindow(), name);
        if (!found)
            throw std::runtime_error("there is no one \"" + name.toStdString() + "\" in the window");
        return *found;
    }

    /// That the files that the job has written are the image's tracks, sample for sample.
    void expectTracks(const DiscImage &image);

    /// The last job's log.
    QString log();

    /// The volumes that the application has mounted.
    QStringList volumes() const;

    /// What the readers have left in the temporary folder.
    QStringList leftRips() const;

    QString path(const QString &name) const { return m_folder.filePath(name); }

    // NOLINTBEGIN(cppcoreguidelines-non-private-member-variables-in-classes): a fixture
    QTemporaryDir m_folder;
    QTemporaryDir m_runtime;
    PrivateBus m_bus;
    BorrowedVariable m_busVariable{"DBUS_SYSTEM_BUS_ADDRESS", m_bus.address().toUtf8()};
    BorrowedVariable m_runtimeVariable{"XDG_RUNTIME_DIR", m_runtime.path().toUtf8()};
    BorrowedVariable m_temporaryVariable{"TMPDIR", m_folder.path().toUtf8()};
    DrivesStandIn m_drives{m_bus.connect()};
    ReleasePages m_pages;
    // Last, as it unmounts what it has mounted in one of the folders.
    std::optional<TonearmApp> m_app;
    // NOLINTEND(cppcoreguidelines-non-private-member-variables-in-classes)

private:
    void closeSheetBy(const QString &buttonName);
};

} // namespace tonearm::test
