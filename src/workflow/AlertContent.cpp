// SPDX-License-Identifier: GPL-3.0-or-later
#include "workflow/AlertContent.h"

#include "support/DescribedError.h"

#include <utility>

namespace tonearm {

using namespace Qt::StringLiterals;

AlertContent::AlertContent(QString alertTitle, QString alertMessage)
    : title(std::move(alertTitle))
    , message(std::move(alertMessage))
{
}

AlertContent::AlertContent(QString alertTitle, const std::exception_ptr &error)
    : AlertContent(std::move(alertTitle), describe(error).joined(u"\n\n"_s))
{
}

} // namespace tonearm
