// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QByteArray>
#include <QProcess>
#include <QString>
#include <QStringList>
#include <QTemporaryDir>

#include <optional>

namespace tonearm::test {

/// Why this machine can't run a sound server; nothing if it can.
std::optional<QString> reasonForSilence();

/// A real sound server of the test's own, without a sound card, that records what it is given to play:
/// 44.1 kHz, stereo, 16 bits.
class SoundServer
{
public:
    /// Fails the test if the server can't be started.
    SoundServer();
    ~SoundServer();
    SoundServer(const SoundServer &) = delete;
    SoundServer &operator=(const SoundServer &) = delete;

    /// As libpulse wants it.
    QByteArray address() const;

    /// What has been heard so far, silence included.
    QByteArray recording() const;

    /// Whether anybody has something to play.
    bool isInUse() const;

    /// Ends the server with whatever plays.
    void kill();

private:
    QString path(const QString &name) const { return m_folder.filePath(name); }

    void start(QProcess &process, const QString &program, const QStringList &arguments) const;

    QTemporaryDir m_folder;
    QProcess m_server;
    QProcess m_recorder;
};

} // namespace tonearm::test

/// For the start of a test that plays something.
#define SKIP_WITHOUT_SOUND()                                                                                 \
    do {                                                                                                     \
        if (const auto reason = tonearm::test::reasonForSilence())                                           \
            GTEST_SKIP() << reason->toStdString();                                                           \
    } while (false)
