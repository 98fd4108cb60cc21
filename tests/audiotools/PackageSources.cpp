// SPDX-License-Identifier: GPL-3.0-or-later
#include "audiotools/PackageSources.h"

#include "audiotools/AudioTools.h"
#include "helpers/Contents.h"

#include <gtest/gtest.h>

#include <QDir>

namespace tonearm::test {

using namespace Qt::StringLiterals;

namespace {

constexpr auto control = R"(Source: ffmpeg
Section: sound
Priority: optional
Maintainer: Nobody <nobody@localhost>
Standards-Version: 4.6.2

Package: ffmpeg
Architecture: any
Description: stand-in
)";

constexpr auto changelog = R"(ffmpeg (9:9.9-1) unstable; urgency=low

  * A stand-in.

 -- Nobody <nobody@localhost>  Sat, 01 Jan 2022 00:00:00 +0000
)";

constexpr auto binaryPackage = R"(Package: %1
Version: 9:9.9-1
Architecture: %2
Maintainer: Nobody <nobody@localhost>
Filename: ./%1.deb
Size: 1
SHA256: 0000000000000000000000000000000000000000000000000000000000000000
Description: stand-in
)";

constexpr auto aptConfiguration = R"(Dir::Etc::SourceList "/dev/null";
Dir::Etc::SourceParts "%1/sources";
Dir::State::Lists "%1/lists";
Dir::Cache "%1/cache";
APT::Sandbox::User "root";
)";

// Run by the test itself, this must not set off what the system hangs on an update.
constexpr auto quietConfiguration = R"(#clear APT::Update::Post-Invoke;
#clear APT::Update::Post-Invoke-Success;
)";

QByteArray outputIn(const QString &folder, const QString &command)
{
    const ProgramRun run = runProgram(u"sh"_s, {u"-c"_s, u"cd \"$1\" && "_s + command, u"sh"_s, folder});
    EXPECT_EQ(run.exitCode, 0) << command.toStdString() << '\n' << run.errors.toStdString();
    return run.output;
}

void writePackageList(const QString &folder, const QString &package)
{
    const QByteArray architecture = runProgram(u"dpkg"_s, {u"--print-architecture"_s}).output.trimmed();
    writeFile(folder + u"/Packages"_s,
              QString::fromLatin1(binaryPackage).arg(package, QString::fromLatin1(architecture)).toUtf8());
}

} // namespace

PackageSources::PackageSources()
{
    for (const QString &folder : {u"ffmpeg/source/debian/source"_s, u"other"_s, u"sources"_s,
                                  u"lists/partial"_s, u"cache/archives/partial"_s})
        QDir(m_folder.path()).mkpath(folder);
    writePackageList(path(u"other"_s), u"other"_s);
    writeFile(path(u"apt.conf"_s), QString::fromLatin1(aptConfiguration).arg(m_folder.path()).toUtf8());
    writeFile(path(u"quiet.conf"_s), quietConfiguration);
}

QString PackageSources::version()
{
    return u"9:9.9-1"_s;
}

void PackageSources::offerFFmpeg(const StandInSource &standIn)
{
    const QString source = path(u"ffmpeg/source/"_s);
    writeScript(source + u"configure"_s, standIn.configure);
    writeFile(source + u"Makefile"_s, standIn.makefile);
    writeFile(source + u"debian/control"_s, control);
    writeFile(source + u"debian/changelog"_s, changelog);
    writeFile(source + u"debian/rules"_s, "#!/usr/bin/make -f\n");
    writeFile(source + u"debian/source/format"_s, "1.0\n");
    outputIn(path(u"ffmpeg"_s),
             u"dpkg-source --before-build source && dpkg-source -sn -b source && rm -r source"_s);
    writeFile(path(u"ffmpeg/Sources"_s), outputIn(path(u"ffmpeg"_s), u"dpkg-scansources ."_s));
    writePackageList(path(u"ffmpeg"_s), u"ffmpeg"_s);
}

void PackageSources::addEntries(const QString &fileName, QString text) const
{
    text.replace(u"FFMPEG"_s, u"file:"_s + path(u"ffmpeg"_s))
        .replace(u"OTHER"_s, u"file:"_s + path(u"other"_s));
    writeFile(path(u"sources/"_s + fileName), text.toUtf8());
}

void PackageSources::updateLists() const
{
    const ProgramRun run =
        runProgram(u"apt-get"_s, {u"-c"_s, path(u"quiet.conf"_s), u"update"_s}, environment());
    EXPECT_EQ(run.exitCode, 0) << run.errors.toStdString();
}

QProcessEnvironment PackageSources::environment() const
{
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert(u"APT_CONFIG"_s, path(u"apt.conf"_s));
    return environment;
}

} // namespace tonearm::test
