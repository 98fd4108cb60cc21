// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>
#include <QStringList>
#include <QUrl>

#include <optional>

namespace tonearm {

enum class LaunchText { none, help, version };

/// The text that the words of the command line ask for, the program's name first. Needs no display, nor
/// that Qt has taken the options out that it reads itself.
LaunchText launchTextAskedFor(const QStringList &words);

/// The text of --help. Needs a QCoreApplication.
QString launchHelpText();

/// How the application is to begin.
struct LaunchRequest
{
    /// Absent for an empty window.
    std::optional<QUrl> file = {};
    /// What is wrong with the command line; empty if nothing is.
    QString problem = {};

    bool operator==(const LaunchRequest &) const = default;
};

/// Reads the words of a command line that asks for no text. A relative path counts from `folder`.
LaunchRequest readLaunchRequest(const QStringList &words, const QString &folder);

} // namespace tonearm
