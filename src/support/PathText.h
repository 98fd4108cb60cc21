// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>
#include <QUrl>

namespace tonearm {

/// The path of a file URL as a person reads it: not percent-encoded, without a slash at its end.
QString plainPath(const QUrl &url);

/// The name of the file or folder that a file URL points at; a slash at the end makes no difference. The
/// root's name is its slash.
QString lastPathComponent(const QUrl &url);

/// The extension of that name in lower case, without its dot. A dot in front makes a name hidden and gives
/// it no extension.
QString lowerCaseExtension(const QUrl &url);

} // namespace tonearm
