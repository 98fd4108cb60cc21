// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>

#include <array>

namespace tonearm {

/// The tags that the editor edits.
enum class EditableTagField { trackPosition, artist, album, title, year, genre, discNumber };

/// All of them in the order of every walk over fields.
inline constexpr std::array allEditableTagFields = {
    EditableTagField::trackPosition, EditableTagField::artist, EditableTagField::album,
    EditableTagField::title,         EditableTagField::year,   EditableTagField::genre,
    EditableTagField::discNumber,
};

/// The field's name for the user.
QString label(EditableTagField field);

/// What of a typed text counts: a position's digits as a number, a year's first four digits, any other text
/// without white space at its ends and without U+0000.
QString normalForm(EditableTagField field, const QString &typed);

} // namespace tonearm
