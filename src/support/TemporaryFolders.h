// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>

namespace tonearm {

/// The application's place in the system's temporary directory.
///
/// That directory belongs to everyone, so a folder of our name counts only if it is a real directory,
/// ours, and closed to others; if somebody else holds the name, a private folder with a random ending
/// serves instead, for the life of this object.
class TemporaryFolders
{
public:
    enum class Purpose { rips, secureRips, artwork, preflight, previews };

    /// `base` is the directory in which the folder "Tonearm" lies.
    explicit TemporaryFolders(QString base);

    /// The folder for a purpose, made with all that leads to it if it isn't there. Throws std::system_error.
    QString folder(Purpose purpose);

private:
    QString root();

    QString m_base;
    QString m_root;
};

} // namespace tonearm
