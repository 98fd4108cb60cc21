// SPDX-License-Identifier: GPL-3.0-or-later
#include "Fuzz.h"

#include "app/settings/AppSettings.h"
#include "app/settings/SettingsStore.h"

#include <QFile>
#include <QTemporaryDir>

#include <cstdlib>

// Whatever the file holds, it can be read and changed, and the change is there the next time.
void tonearm::fuzz::tryBytes(const QByteArray &bytes)
{
    const QTemporaryDir folder;
    const QString path = folder.filePath(QStringLiteral("settings.json"));
    QFile file(path);
    if (!file.open(QFile::WriteOnly) || file.write(bytes) != bytes.size())
        std::abort();
    file.close();
    {
        SettingsStore store(path);
        AppSettings settings(store);
        settings.setArtworkSizeBudgetKilobytes(700);
    }
    SettingsStore store(path);
    if (AppSettings(store).artworkSizeBudgetKilobytes() != 700)
        std::abort();
}
