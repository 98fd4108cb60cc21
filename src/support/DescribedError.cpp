// SPDX-License-Identifier: GPL-3.0-or-later
#include "support/DescribedError.h"

#include <algorithm>
#include <filesystem>
#include <system_error>

namespace tonearm {

using namespace Qt::StringLiterals;

namespace {

// What the thrower said of the place, which stands in front of the system's message.
QString placeOf(const std::system_error &error, const QString &message)
{
    if (const auto *const file = dynamic_cast<const std::filesystem::filesystem_error *>(&error))
        return QString::fromStdString(file->path1().string());
    const QString words = QString::fromUtf8(error.what());
    return words.left(std::max(words.lastIndexOf(u": "_s + message), qsizetype(0)));
}

// "Permission denied" and its like come without a full stop.
QString sentence(const std::system_error &error)
{
    const QString message = QString::fromStdString(error.code().message());
    const QString place = placeOf(error, message);
    return place.isEmpty() ? QString(message + u'.') : QString(place + u": "_s + message + u'.');
}

} // namespace

QString ErrorWords::joined(const QString &separator) const
{
    return recoverySuggestion ? QString(description + separator + *recoverySuggestion) : description;
}

ErrorWords describe(const std::exception_ptr &error)
{
    try {
        std::rethrow_exception(error);
    } catch (const DescribedError &described) {
        return {described.description(), described.recoverySuggestion()};
    } catch (const std::system_error &system) {
        return {sentence(system), std::nullopt};
    } catch (const std::exception &other) {
        return {QString::fromUtf8(other.what()), std::nullopt};
    } catch (...) {
        return {u"An unexpected failure occurred."_s, std::nullopt};
    }
}

} // namespace tonearm
