// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/PulseSounds.h"

#include "platform/PulseLibrary.h"
#include "platform/PulseSound.h"
#include "platform/WavFile.h"

#include <utility>

namespace tonearm {

PulseSounds::PulseSounds()
    : PulseSounds(Options())
{
}

PulseSounds::PulseSounds(Options options)
    : m_options(std::move(options))
{
}

PulseSounds::~PulseSounds() = default;

std::unique_ptr<PreviewSound> PulseSounds::open(const QUrl &url, EndCallback onEnd)
{
    WavFile file(url.toLocalFile());
    if (!m_library)
        m_library = std::make_shared<const PulseLibrary>(m_options.library);
    return std::make_unique<PulseSound>(m_library, std::move(file), m_options.server, std::move(onEnd));
}

} // namespace tonearm
