// SPDX-License-Identifier: GPL-3.0-or-later
#include "tageditor/RewriteRun.h"

#include "support/Background.h"
#include "tageditor/RemovingOnFailure.h"
#include "tools/ImageSeries.h"

#include <QFile>
#include <QFileInfo>
#include <QUuid>

#include <unistd.h>

#include <cerrno>
#include <system_error>
#include <utility>

namespace tonearm {

using namespace Qt::StringLiterals;

namespace {

QString linkTo(const QString &image, ScratchFolders &scratch)
{
    const QString name =
        QUuid::createUuid().toString(QUuid::WithoutBraces) + u'.' + QFileInfo(image).suffix();
    const QString link = scratch.folder(TemporaryFolders::Purpose::preflight) + u'/' + name;
    if (::symlink(QFile::encodeName(image).constData(), QFile::encodeName(link).constData()) != 0)
        throw std::system_error(errno, std::generic_category(), link.toStdString());
    return link;
}

QCoro::Task<> runWithLink(TagTools tools, Rewrite rewrite, std::stop_token stop)
{
    const auto linking = [image = rewrite.image, scratch = tools.scratch] { return linkTo(image, *scratch); };
    rewrite.image = co_await inBackground(linking);
    const QStringList arguments = rewriteArguments(rewrite);
    QCoro::Task<> run = runFFmpeg(tools, arguments, stop);
    co_await removingOnFailure(std::move(run), rewrite.image);
    co_await removeFile(rewrite.image);
}

} // namespace

QCoro::Task<> runRewrite(TagTools tools, Rewrite rewrite, std::stop_token stop)
{
    if (mayReadAsSeries(rewrite.image))
        return runWithLink(std::move(tools), std::move(rewrite), std::move(stop));
    return runFFmpeg(std::move(tools), rewriteArguments(rewrite), std::move(stop));
}

} // namespace tonearm
