// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>
#include <QUuid>

#include <exception>

namespace tonearm {

/// An alert that a model wants shown.
struct AlertContent
{
    AlertContent(QString alertTitle, QString alertMessage);

    /// Words a failure: its description and, if it has one, its recovery suggestion.
    AlertContent(QString alertTitle, const std::exception_ptr &error);

    /// New for each alert, so that the same words can be shown twice.
    QUuid id = QUuid::createUuid();
    QString title;
    QString message;

    bool operator==(const AlertContent &) const = default;
};

} // namespace tonearm
