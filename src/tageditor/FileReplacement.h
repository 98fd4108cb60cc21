// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "tageditor/RewriteTarget.h"

#include <QString>

#include <chrono>

namespace tonearm {

/// Makes an empty file that nobody else can read, for a child program to write to: the original may not be
/// meant for everyone. Throws std::system_error. Blocks.
void createPrivateFile(const QString &path);

/// When a file's attributes were last changed.
using AttributesDate = std::chrono::nanoseconds;

/// Gives the rewritten copy the original's mode, access control list and extended attributes, and its owner
/// where that is permitted, and waits until it lies on the disk for good. Returns of which date they are.
/// Throws std::system_error. Blocks.
AttributesDate carryAttributesOver(const RewriteTarget &target);

/// Puts a copy that has the original's attributes as of some date in the original's place, in one step and
/// durably: at every moment, a loss of power included, one of the two is there as a whole. Attributes that
/// have changed since are carried over once more. Other names of the same file (hard links) keep the old
/// content: one name can't be exchanged without parting from them, and writing into the file that they share
/// could leave all of them damaged.
///
/// Throws AudioFileTagError if the original has been changed or deleted since the rewrite began, and
/// std::system_error; the original is as it was then. Blocks.
void replaceOriginal(const RewriteTarget &target, AttributesDate carriedOver);

} // namespace tonearm
