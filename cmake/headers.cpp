// SPDX-License-Identifier: GPL-3.0-or-later
// The headers that are compiled ahead need a file to be compiled with.
