// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "tageditor/RewriteTarget.h"

#include <QString>

namespace tonearm {

/// Makes an empty file that nobody else can read, for a child program to write to: the original may not be
/// meant for everyone. Throws std::system_error. Blocks.
void createPrivateFile(const QString &path);

/// Puts the rewritten copy in the original's place, in one step and durably: at every moment, a loss of power
/// included, one of the two is there as a whole. The copy takes over the original's mode, access control list
/// and extended attributes, and its owner where that is permitted. Other names of the same file (hard links)
/// keep the old content: one name can't be exchanged without parting from them, and writing into the file
/// that they share could leave all of them damaged.
///
/// Throws AudioFileTagError if the original has been changed or deleted since the rewrite began, and
/// std::system_error; the original is as it was then. Blocks.
void replaceOriginal(const RewriteTarget &target);

} // namespace tonearm
