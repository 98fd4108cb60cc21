// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/DesktopPanels.h"

#include <QCoroFuture>

#include <QApplication>
#include <QFileDialog>
#include <QGridLayout>
#include <QLabel>
#include <QPointer>
#include <QPromise>

#include <utility>

namespace tonearm {

using namespace Qt::StringLiterals;

namespace {

// Names on Linux are case-sensitive, an extension isn't.
QString nameFilter(const QStringList &extensions)
{
    QStringList kinds;
    QStringList patterns;
    for (const QString &lower : extensions) {
        kinds.append(lower.toUpper());
        const QString capitalised = lower.left(1).toUpper() + lower.mid(1);
        for (const QString &spelling : {lower, lower.toUpper(), capitalised})
            patterns.append(u"*."_s + spelling);
    }
    return u"%1 files (%2)"_s.arg(kinds.join(u", "_s), patterns.join(u' '));
}

// Qt's own dialog has room below its boxes; the desktop's shows its title alone.
void addMessage(QFileDialog &dialog, const QString &message)
{
    auto *grid = qobject_cast<QGridLayout *>(dialog.layout());
    if (!grid)
        return;
    auto *label = new QLabel(message, &dialog);
    label->setWordWrap(true);
    grid->addWidget(label, grid->rowCount(), 0, 1, -1);
}

void setUp(QFileDialog &dialog, const OpenPanelRequest &request)
{
    dialog.setWindowModality(Qt::WindowModal);
    dialog.setLabelText(QFileDialog::Accept, request.prompt);
    dialog.setSupportedSchemes({u"file"_s});
    dialog.setOption(QFileDialog::ReadOnly, !request.offersNewFolders);
    if (request.startFolder)
        dialog.setDirectoryUrl(*request.startFolder);
    if (!request.message.isEmpty())
        addMessage(dialog, request.message);
    if (request.target == OpenPanelRequest::Target::folder) {
        dialog.setFileMode(QFileDialog::Directory);
        dialog.setOption(QFileDialog::ShowDirsOnly);
        return;
    }
    dialog.setFileMode(QFileDialog::ExistingFile);
    dialog.setOption(QFileDialog::HideNameFilterDetails);
    dialog.setNameFilter(nameFilter(request.extensions));
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
