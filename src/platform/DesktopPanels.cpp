// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/DesktopPanels.h"

#include <QCoroFuture>

#include <QApplication>
#include <QFileDialog>
#include <QPointer>
#include <QPromise>

#include <utility>

namespace tonearm {

using namespace Qt::StringLiterals;

namespace {

void setUp(QFileDialog &dialog, const OpenPanelRequest &request)
{
    dialog.setWindowModality(Qt::WindowModal);
    dialog.setLabelText(QFileDialog::Accept, request.prompt);
    dialog.setSupportedSchemes({u"file"_s});
    if (request.target == OpenPanelRequest::Target::folder) {
        dialog.setFileMode(QFileDialog::Directory);
        dialog.setOption(QFileDialog::ShowDirsOnly);
        return;
    }
    dialog.setFileMode(QFileDialog::ExistingFile);
    // Names on Linux are case-sensitive, the extension isn't.
    const QString lower = request.extension.toLower();
    const QString capitalised = lower.left(1).toUpper() + lower.mid(1);
    dialog.setNameFilter(u"*.%1 *.%2 *.%3"_s.arg(lower, lower.toUpper(), capitalised));
}

} // namespace

QCoro::Task<std::optional<QUrl>> DesktopPanels::choose(OpenPanelRequest request, std::stop_token stop)
{
    // The window that owns the dialog may go first and take it along.
    const QPointer<QFileDialog> dialog = new QFileDialog(QApplication::activeWindow(), request.title);
    setUp(*dialog, request);

    QPromise<void> promise;
    promise.start();
    QFuture<void> answered = promise.future();
    QObject::connect(dialog, &QDialog::finished, dialog, [&promise] { promise.finish(); });
    QObject::connect(dialog, &QObject::destroyed, dialog, [&promise] { promise.finish(); });
    const std::stop_callback onStop(stop, [&promise] { promise.finish(); });
    dialog->open();
    co_await answered;

    std::optional<QUrl> chosen;
    if (dialog && !stop.stop_requested() && dialog->result() == QDialog::Accepted)
        chosen = dialog->selectedUrls().value(0);
    delete dialog;
    co_return chosen;
}

} // namespace tonearm
