// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <stdexcept>

namespace tonearm {

/// Why a disc can't be made a volume, in words for stderr.
class CddafsError : public std::runtime_error
{
public:
    using std::runtime_error::runtime_error;
};

} // namespace tonearm
