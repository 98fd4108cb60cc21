// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

// glibc before 2.37 declares its functions without regard to C++.
extern "C" {
#include <sys/pidfd.h>
}
