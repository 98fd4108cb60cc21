// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/PulseLibrary.h"

#include <QFile>

#include <dlfcn.h>

#include <utility>

namespace tonearm {

using namespace Qt::StringLiterals;

namespace {

// Never closed: the library keeps things per thread that outlive its users.
void *loaded(const QString &name)
{
    void *library = ::dlopen(QFile::encodeName(name).constData(), RTLD_NOW | RTLD_LOCAL);
    if (library == nullptr)
        throw PulseLibraryError(QString::fromLocal8Bit(::dlerror()));
    return library;
}

template <typename Function> void resolve(Function &function, void *library, const char *name)
{
    function = reinterpret_cast<Function>(::dlsym(library, name));
    if (function == nullptr)
        throw PulseLibraryError(QString::fromLocal8Bit(::dlerror()));
}

} // namespace

PulseLibraryError::PulseLibraryError(QString loaderMessage)
    : reason(std::move(loaderMessage))
{
}

QString PulseLibraryError::description() const
{
    return u"The sound system can't be used. "_s + reason;
}

PulseLibrary::PulseLibrary(const QString &name)
{
    void *library = loaded(name);
    resolve(mainloopNew, library, "pa_mainloop_new");
    resolve(mainloopFree, library, "pa_mainloop_free");
    resolve(mainloopGetApi, library, "pa_mainloop_get_api");
    resolve(mainloopIterate, library, "pa_mainloop_iterate");
    resolve(mainloopWakeup, library, "pa_mainloop_wakeup");

    resolve(contextNew, library, "pa_context_new");
    resolve(contextConnect, library, "pa_context_connect");
    resolve(contextDisconnect, library, "pa_context_disconnect");
    resolve(contextGetState, library, "pa_context_get_state");
    resolve(contextSetStateCallback, library, "pa_context_set_state_callback");
    resolve(contextUnref, library, "pa_context_unref");

    resolve(streamNew, library, "pa_stream_new");
    resolve(streamConnectPlayback, library, "pa_stream_connect_playback");
    resolve(streamDisconnect, library, "pa_stream_disconnect");
    resolve(streamDrain, library, "pa_stream_drain");
    resolve(streamGetState, library, "pa_stream_get_state");
    resolve(streamSetStateCallback, library, "pa_stream_set_state_callback");
    resolve(streamSetWriteCallback, library, "pa_stream_set_write_callback");
    resolve(streamUnref, library, "pa_stream_unref");
    resolve(streamWrite, library, "pa_stream_write");

    resolve(operationUnref, library, "pa_operation_unref");
}

} // namespace tonearm
