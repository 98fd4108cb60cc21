// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/PulseSound.h"

#include <new>
#include <utility>

namespace tonearm {

namespace {

constexpr std::uint32_t serversChoice = static_cast<std::uint32_t>(-1);
// How far ahead the server is supplied. Short, so that a server without an own idea of it begins and falls
// silent at once; long enough for a machine that is busy encoding.
constexpr std::uint32_t bufferMilliseconds = 250;

} // namespace

PulseSound::PulseSound(std::shared_ptr<const PulseLibrary> library, WavFile file,
                       std::optional<QByteArray> server, PreviewSounds::EndCallback onEnd)
    : m_library(std::move(library))
    , m_server(std::move(server))
    , m_onEnd(std::move(onEnd))
    , m_loop(m_library->mainloopNew(), {m_library})
    , m_file(std::move(file))
    , m_context(nullptr, {m_library})
    , m_stream(nullptr, {m_library})
{
    if (!m_loop)
        throw std::bad_alloc();
}

PulseSound::~PulseSound()
{
    m_isStopping = true;
    m_library->mainloopWakeup(m_loop.get());
    if (m_thread.joinable())
        m_thread.join();
}

void PulseSound::start()
{
    m_thread = std::thread([this] { play(); });
}

void PulseSound::play()
{
    m_isOver = m_file.isAtEnd() || !connectToServer();
    while (!m_isOver && !m_isStopping) {
        constexpr int blocking = 1;
        m_isOver = m_library->mainloopIterate(m_loop.get(), blocking, nullptr) < 0 || m_isOver;
    }
    m_stream.reset();
    m_context.reset();
    if (!m_isStopping)
        m_onEnd();
}

bool PulseSound::connectToServer()
{
    m_context.reset(m_library->contextNew(m_library->mainloopGetApi(m_loop.get()), "Tonearm"));
    if (!m_context)
        return false;
    m_library->contextSetStateCallback(m_context.get(), onContextState, this);
    const char *server = m_server ? m_server->constData() : nullptr;
    return m_library->contextConnect(m_context.get(), server, PA_CONTEXT_NOFLAGS, nullptr) >= 0;
}

bool PulseSound::openStream()
{
    const pa_sample_spec format = {
        .format = PA_SAMPLE_S16LE, .rate = m_file.sampleRate(), .channels = m_file.channels()};
    m_stream.reset(m_library->streamNew(m_context.get(), "Preview", &format, nullptr));
    if (!m_stream)
        return false;
    m_library->streamSetStateCallback(m_stream.get(), onStreamState, this);
    m_library->streamSetWriteCallback(m_stream.get(), onWritable, this);
    const std::uint32_t frames = m_file.sampleRate() / 1000 * bufferMilliseconds;
    const pa_buffer_attr buffer = {.maxlength = serversChoice,
                                   .tlength = frames * m_file.bytesPerFrame(),
                                   .prebuf = serversChoice,
                                   .minreq = serversChoice,
                                   .fragsize = serversChoice};
    return m_library->streamConnectPlayback(m_stream.get(), nullptr, &buffer, PA_STREAM_ADJUST_LATENCY,
                                            nullptr, nullptr) >= 0;
}

void PulseSound::supply(std::size_t bytes)
{
    const QByteArray samples = m_file.read(static_cast<qint64>(bytes));
    if (!samples.isEmpty() &&
        m_library->streamWrite(m_stream.get(), samples.constData(), static_cast<std::size_t>(samples.size()),
                               nullptr, 0, PA_SEEK_RELATIVE) < 0)
        m_isOver = true;
    else if (m_file.isAtEnd())
        drain();
}

// Waits for the server to have played what it has.
void PulseSound::drain()
{
    m_library->streamSetWriteCallback(m_stream.get(), nullptr, nullptr);
    if (pa_operation *draining = m_library->streamDrain(m_stream.get(), onDrained, this))
        m_library->operationUnref(draining);
    else
        m_isOver = true;
}

void PulseSound::onContextState(pa_context *context, void *sound)
{
    auto *self = static_cast<PulseSound *>(sound);
    const pa_context_state_t state = self->m_library->contextGetState(context);
    if (state == PA_CONTEXT_READY)
        self->m_isOver = !self->openStream();
    else if (!PA_CONTEXT_IS_GOOD(state))
        self->m_isOver = true;
}

void PulseSound::onStreamState(pa_stream *stream, void *sound)
{
    auto *self = static_cast<PulseSound *>(sound);
    if (!PA_STREAM_IS_GOOD(self->m_library->streamGetState(stream)))
        self->m_isOver = true;
}

void PulseSound::onWritable(pa_stream *, std::size_t bytes, void *sound)
{
    static_cast<PulseSound *>(sound)->supply(bytes);
}

void PulseSound::onDrained(pa_stream *, int, void *sound)
{
    static_cast<PulseSound *>(sound)->m_isOver = true;
}

void PulseSound::Release::operator()(pa_context *context) const
{
    library->contextSetStateCallback(context, nullptr, nullptr);
    library->contextDisconnect(context);
    library->contextUnref(context);
}

void PulseSound::Release::operator()(pa_stream *stream) const
{
    library->streamSetStateCallback(stream, nullptr, nullptr);
    library->streamSetWriteCallback(stream, nullptr, nullptr);
    library->streamDisconnect(stream);
    library->streamUnref(stream);
}

} // namespace tonearm
