// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "cddafs/CdText.h"
#include "cddafs/DiscLayout.h"
#include "cddafs/SectorSource.h"
#include "support/FileDescriptor.h"

#include <QByteArray>

#include <memory>
#include <mutex>

struct _CdIo;

namespace tonearm {

/// A disc in a drive or in an image, read with libcdio.
class CdioDisc : public SectorSource
{
public:
    /// `path` is a drive's device or a .cue file. Throws CddafsError if there is no disc.
    explicit CdioDisc(const QByteArray &path);

    const DiscLayout &layout() const { return m_layout; }

    const DiscTitles &titles() const { return m_titles; }

    bool read(qint64 first, qint64 count, char *out) override;

    /// Whether the disc is still in its drive, or the image where it was. Any thread may ask.
    bool isPresent() const;

private:
    struct Close
    {
        void operator()(_CdIo *disc) const;
    };

    DiscLayout readLayout() const;

    const QByteArray m_path;
    const bool m_isDrive;
    // libcdio takes one call at a time.
    std::mutex m_mutex;
    std::unique_ptr<_CdIo, Close> m_disc;
    DiscLayout m_layout;
    DiscTitles m_titles;
    // Kept apart from libcdio's, so that asking doesn't wait for a reading.
    FileDescriptor m_status;
};

} // namespace tonearm
