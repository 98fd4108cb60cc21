// SPDX-License-Identifier: GPL-3.0-or-later
#include "artwork/ImageFileName.h"

#include "support/PathText.h"

namespace tonearm {

using namespace Qt::StringLiterals;

const QStringList &imageExtensions()
{
    static const QStringList extensions = {u"jpg"_s, u"jpeg"_s, u"png"_s};
    return extensions;
}

bool hasImageExtension(const QUrl &url)
{
    return imageExtensions().contains(lowerCaseExtension(url));
}

} // namespace tonearm
