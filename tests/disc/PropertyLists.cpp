// SPDX-License-Identifier: GPL-3.0-or-later
#include "disc/PropertyLists.h"

#include <plist/plist.h>

namespace tonearm::test {

QByteArray xmlList(const QByteArray &rootContents)
{
    return R"(<?xml version="1.0" encoding="UTF-8"?>
<plist version="1.0"><dict>)" +
           rootContents + "</dict></plist>";
}

QByteArray binaryList(const QByteArray &xml)
{
    plist_t root = nullptr;
    plist_from_xml(xml.constData(), static_cast<quint32>(xml.size()), &root);
    char *bytes = nullptr;
    quint32 length = 0;
    plist_to_bin(root, &bytes, &length);
    const QByteArray binary(bytes, static_cast<qsizetype>(length));
    plist_to_bin_free(bytes);
    plist_free(root);
    return binary;
}

QByteArray number(const QByteArray &key, qint64 value)
{
    return "<key>" + key + "</key><integer>" + QByteArray::number(value) + "</integer>";
}

QByteArray trackEntry(qint64 point, qint64 startBlock)
{
    return "<dict>" + number("Point", point) + number("Start Block", startBlock) + "</dict>";
}

QByteArray sessionOf(const QByteArray &numbers, const QList<QByteArray> &entries)
{
    QByteArray array;
    if (!entries.isEmpty())
        array = "<key>Track Array</key><array>" + entries.join() + "</array>";
    return "<dict>" + numbers + array + "</dict>";
}

QByteArray tocOf(const QList<QByteArray> &sessions)
{
    return xmlList("<key>Sessions</key><array>" + sessions.join() + "</array>");
}

} // namespace tonearm::test
