// SPDX-License-Identifier: GPL-3.0-or-later
#include "helpers/Mutagen.h"

#include "helpers/Media.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

namespace tonearm::test {

using namespace Qt::StringLiterals;

namespace {

constexpr auto printTags = R"(
import json, mutagen
file = mutagen.File(a[1], easy=True)
print(json.dumps({key.lower(): [str(value) for value in file.tags[key]] for key in file.tags.keys()}
                 if file.tags else {}))
)";

constexpr auto printPictures = R"(
import hashlib, json, mutagen
file = mutagen.File(a[1])
pictures = [picture.data for picture in getattr(file, 'pictures', [])]
if file.tags is not None and hasattr(file.tags, 'getall'):
    pictures += [frame.data for frame in file.tags.getall('APIC')]
elif file.tags is not None and 'covr' in file.tags:
    pictures += [bytes(cover) for cover in file.tags['covr']]
print(json.dumps([hashlib.sha256(data).hexdigest() for data in pictures]))
)";

QStringList textsOf(const QJsonValue &array)
{
    QStringList result;
    for (const QJsonValue value : array.toArray())
        result.append(value.toString());
    return result;
}

} // namespace

QByteArray python(const QByteArray &code, const QStringList &arguments)
{
    const QStringList options = {u"-B"_s, u"-X"_s, u"utf8"_s, u"-c"_s};
    return outputOf(u"/usr/bin/python3"_s,
                    options + QStringList{QString::fromUtf8("from sys import argv as a\n" + code)} +
                        arguments);
}

QMap<QString, QStringList> mutagenTags(const QString &path)
{
    const QJsonObject tags = QJsonDocument::fromJson(python(printTags, {path})).object();
    QMap<QString, QStringList> result;
    for (auto tag = tags.begin(); tag != tags.end(); ++tag)
        result.insert(tag.key(), textsOf(tag.value()));
    return result;
}

QStringList mutagenPictures(const QString &path)
{
    return textsOf(QJsonDocument::fromJson(python(printPictures, {path})).array());
}

QByteArray audioPacketDigest(const QString &path)
{
    return outputOf(u"ffmpeg"_s, {u"-v"_s, u"error"_s, u"-i"_s, path, u"-map"_s, u"0:a"_s, u"-c"_s, u"copy"_s,
                                  u"-f"_s, u"md5"_s, u"-"_s});
}

} // namespace tonearm::test
