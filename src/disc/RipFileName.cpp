// SPDX-License-Identifier: GPL-3.0-or-later
#include "disc/RipFileName.h"

#include <QUuid>

namespace tonearm {

using namespace Qt::StringLiterals;

QString ripFileName(const QString &use, qint64 trackNumber, const QString &extension)
{
    const QString unique = QUuid::createUuid().toString(QUuid::WithoutBraces).toUpper();
    return use + u'-' + QString::number(trackNumber) + u'-' + unique + u'.' + extension;
}

} // namespace tonearm
