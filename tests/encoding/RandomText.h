// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>

#include <random>

namespace tonearm::test {

/// Makes texts out of what is hard on file names, the same ones for the same seed.
class RandomText
{
public:
    explicit RandomText(unsigned seed);

    /// Up to 160 pieces: letters of several scripts, what the cleaning replaces or drops, marks, emoji,
    /// blanks, line ends and control characters.
    QString next();

private:
    std::size_t below(std::size_t count);

    std::mt19937 m_engine;
};

} // namespace tonearm::test
