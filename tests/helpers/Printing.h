// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>
#include <QStringList>
#include <QUrl>

#include <ostream>

// So that a failed comparison shows a text instead of its bytes. GoogleTest finds these by the
// argument's namespace, which for Qt's types is the global one.

// NOLINTBEGIN(readability-identifier-naming): GoogleTest's name
inline void PrintTo(const QString &text, std::ostream *out)
{
    *out << '"' << text.toStdString() << '"';
}

inline void PrintTo(const QUrl &url, std::ostream *out)
{
    *out << url.toString().toStdString();
}

// NOLINTEND(readability-identifier-naming)
