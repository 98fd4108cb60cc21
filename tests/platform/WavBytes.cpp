// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/WavBytes.h"

#include <QtEndian>

#include <random>

namespace tonearm::test {

namespace {

template <typename Number> QByteArray littleEndian(Number number)
{
    QByteArray bytes(sizeof number, '\0');
    qToLittleEndian(number, bytes.data());
    return bytes;
}

QByteArray formatOf(const WavRecipe &recipe)
{
    const auto frame = static_cast<std::uint16_t>(recipe.channels * recipe.bits / 8);
    return littleEndian(recipe.format) + littleEndian(recipe.channels) + littleEndian(recipe.sampleRate) +
           littleEndian(recipe.sampleRate * frame) + littleEndian(frame) + littleEndian(recipe.bits);
}

QByteArray headed(const QByteArray &name, std::uint32_t size, const QByteArray &contents)
{
    return name + littleEndian(size) + contents + (size % 2 != 0 ? QByteArray(1, '\0') : QByteArray());
}

std::uint32_t sizeOf(const QByteArray &bytes)
{
    return static_cast<std::uint32_t>(bytes.size());
}

} // namespace

QByteArray wavBytes(const QByteArray &samples, const WavRecipe &recipe)
{
    const QByteArray contents = "WAVE" + wavChunk("fmt ", formatOf(recipe)) + recipe.chunks +
                                headed("data", recipe.dataBytes.value_or(sizeOf(samples)), samples);
    return wavChunk("RIFF", contents);
}

QByteArray wavChunk(const QByteArray &name, const QByteArray &contents)
{
    return headed(name, sizeOf(contents), contents);
}

QByteArray noise(double seconds)
{
    std::minstd_rand numbers(1);
    QByteArray samples(static_cast<qsizetype>(seconds * 44100) * 4, '\0');
    for (char &byte : samples)
        byte = static_cast<char>(numbers() >> 8);
    return samples;
}

} // namespace tonearm::test
