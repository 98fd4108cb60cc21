// SPDX-License-Identifier: GPL-3.0-or-later
#include "workflow/JobCoverArt.h"

#include "support/PathText.h"
#include "tools/ImageSeries.h"

#include <QFile>

#include <cerrno>
#include <system_error>
#include <utility>

namespace tonearm {

using namespace Qt::StringLiterals;

JobCoverArt::JobCoverArt(std::shared_ptr<ArtworkFolder> folder)
    : m_folder(std::move(folder))
{
}

JobCoverArt::~JobCoverArt()
{
    if (m_copy)
        m_folder->discard(*m_copy);
}

QUrl JobCoverArt::withUsableName(const QUrl &cover)
{
    if (!mayReadAsSeries(cover.toLocalFile()))
        return cover;
    QFile file(cover.toLocalFile());
    if (!file.open(QFile::ReadOnly)) {
        const int reason = file.error() == QFile::PermissionsError ? EACCES : ENOENT;
        throw std::system_error(reason, std::generic_category(), file.fileName().toStdString());
    }
    m_copy = m_folder->save(file.readAll(), u"job."_s + lowerCaseExtension(cover));
    return *m_copy;
}

} // namespace tonearm
