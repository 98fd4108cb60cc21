// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

namespace tonearm {

/// How far a ripped track can be trusted.
enum class RipVerification {
    unverified, ///< read; nothing vouches for it
    secure,     ///< read with error correction, which reported no problems
    verified,   ///< read twice with identical results
    mismatched  ///< the two reads disagreed
};

/// What holds for two findings about one track: a disagreement outweighs everything, then the stronger
/// assurance counts.
RipVerification combined(RipVerification first, RipVerification second);

} // namespace tonearm
