// SPDX-License-Identifier: GPL-3.0-or-later

// Debian's Qt isn't instrumented, so ThreadSanitizer doesn't see what it hands from one thread to another.
// The linker leads the calls that the program makes to the functions below (CMakeLists.txt beside this file
// lists them), and these tell ThreadSanitizer who hands over and who takes before they go on to Qt.

#include <QDeadlineTimer>
#include <QFuture>
#include <QMetaObject>
#include <QThread>

#include <array>
#include <cstddef>
#include <cstdint>

#include <sanitizer/tsan_interface.h>

namespace {

// ThreadSanitizer forgets what it was told of an address when memory there is freed, which it can't follow
// inside Qt. So each address has a place here that stays; that two may share one hides a race once in a long
// while.
const void *placeOf(const void *what)
{
    static std::array<char, 4093> places;
    return &places[reinterpret_cast<std::uintptr_t>(what) / alignof(std::max_align_t) % places.size()];
}

// Whatever a thread has written before it gives is seen by whoever takes the same afterwards.
void give(const void *what)
{
    __tsan_release(const_cast<void *>(placeOf(what)));
}

void take(const void *what)
{
    __tsan_acquire(const_cast<void *>(placeOf(what)));
}

// A call that waits in the event queue of another thread.
class HandedCall : public QtPrivate::QSlotObjectBase
{
public:
    explicit HandedCall(QtPrivate::QSlotObjectBase *call)
        : QSlotObjectBase(&HandedCall::operate)
        , m_call(call)
    {
        give(this);
    }

private:
    static void operate(int operation, QSlotObjectBase *self, QObject *receiver, void **arguments, bool *)
    {
        auto *handed = static_cast<HandedCall *>(self);
        take(handed);
        if (operation == Call) {
            handed->m_call->call(receiver, arguments);
            // To who waits for its end, to the last that lets go of it, and to who waits for the thread.
            give(receiver);
            give(handed);
            give(QThread::currentThread());
        } else if (operation == Destroy) {
            handed->m_call->destroyIfLastRef();
            delete handed;
        }
    }

    QtPrivate::QSlotObjectBase *m_call;
};

} // namespace

// Functions of Qt under their names in the library: the one itself, and the one that stands before it.
#define TONEARM_QT(name) __asm__("__real_" name)
#define TONEARM_BEFORE_QT(name) __asm__("__wrap_" name)

// QMetaObject::invokeMethod; who waits for the call's end takes what it has done.
#define TONEARM_INVOKE                                                                                       \
    "_ZN11QMetaObject16invokeMethodImplEP7QObjectPN9QtPrivate15QSlotObjectBaseEN2Qt14ConnectionTypeEPv"
bool qtInvoke(QObject *, QtPrivate::QSlotObjectBase *, Qt::ConnectionType, void *) TONEARM_QT(TONEARM_INVOKE);
bool invoke(QObject *, QtPrivate::QSlotObjectBase *, Qt::ConnectionType, void *)
    TONEARM_BEFORE_QT(TONEARM_INVOKE);

bool invoke(QObject *object, QtPrivate::QSlotObjectBase *call, Qt::ConnectionType type, void *result)
{
    const bool isInvoked = qtInvoke(object, new HandedCall(call), type, result);
    if (type == Qt::BlockingQueuedConnection)
        take(object);
    return isInvoked;
}

// QThread::start and QThread::wait
#define TONEARM_START "_ZN7QThread5startENS_8PriorityE"
void qtStart(QThread *, QThread::Priority) TONEARM_QT(TONEARM_START);
void start(QThread *, QThread::Priority) TONEARM_BEFORE_QT(TONEARM_START);

void start(QThread *thread, QThread::Priority priority)
{
    give(thread);
    qtStart(thread, priority);
}

#define TONEARM_WAIT "_ZN7QThread4waitE14QDeadlineTimer"
bool qtWait(QThread *, QDeadlineTimer) TONEARM_QT(TONEARM_WAIT);
bool wait(QThread *, QDeadlineTimer) TONEARM_BEFORE_QT(TONEARM_WAIT);

bool wait(QThread *thread, QDeadlineTimer deadline)
{
    const bool hasEnded = qtWait(thread, deadline);
    take(thread);
    return hasEnded;
}

// The state of a promise, which its futures share: given when the work starts and when it has ended, taken by
// the work when it asks whether it is still wanted, by who waits, and by the last that lets go of it.
using Future = QFutureInterfaceBase;

static const void *stateOf(const Future *future)
{
    return &future->mutex();
}

#define TONEARM_REPORT_STARTED "_ZN20QFutureInterfaceBase13reportStartedEv"
void qtReportStarted(Future *) TONEARM_QT(TONEARM_REPORT_STARTED);
void reportStarted(Future *) TONEARM_BEFORE_QT(TONEARM_REPORT_STARTED);

void reportStarted(Future *future)
{
    give(stateOf(future));
    qtReportStarted(future);
}

#define TONEARM_REPORT_FINISHED "_ZN20QFutureInterfaceBase14reportFinishedEv"
void qtReportFinished(Future *) TONEARM_QT(TONEARM_REPORT_FINISHED);
void reportFinished(Future *) TONEARM_BEFORE_QT(TONEARM_REPORT_FINISHED);

void reportFinished(Future *future)
{
    give(stateOf(future));
    qtReportFinished(future);
}

#define TONEARM_IS_CANCELED "_ZNK20QFutureInterfaceBase10isCanceledEv"
bool qtIsCanceled(const Future *) TONEARM_QT(TONEARM_IS_CANCELED);
bool isCanceled(const Future *) TONEARM_BEFORE_QT(TONEARM_IS_CANCELED);

bool isCanceled(const Future *future)
{
    take(stateOf(future));
    return qtIsCanceled(future);
}

#define TONEARM_WAIT_FOR_RESULT "_ZN20QFutureInterfaceBase13waitForResultEi"
void qtWaitForResult(Future *, int) TONEARM_QT(TONEARM_WAIT_FOR_RESULT);
void waitForResult(Future *, int) TONEARM_BEFORE_QT(TONEARM_WAIT_FOR_RESULT);

void waitForResult(Future *future, int index)
{
    qtWaitForResult(future, index);
    take(stateOf(future));
}

#define TONEARM_WAIT_FOR_FINISHED "_ZN20QFutureInterfaceBase15waitForFinishedEv"
void qtWaitForFinished(Future *) TONEARM_QT(TONEARM_WAIT_FOR_FINISHED);
void waitForFinished(Future *) TONEARM_BEFORE_QT(TONEARM_WAIT_FOR_FINISHED);

void waitForFinished(Future *future)
{
    qtWaitForFinished(future);
    take(stateOf(future));
}

#define TONEARM_LET_GO "_ZNK20QFutureInterfaceBase6derefTEv"
bool qtLetGo(const Future *) TONEARM_QT(TONEARM_LET_GO);
bool letGo(const Future *) TONEARM_BEFORE_QT(TONEARM_LET_GO);

bool letGo(const Future *future)
{
    const void *state = stateOf(future);
    give(state);
    const bool othersHoldIt = qtLetGo(future);
    take(state);
    return othersHoldIt;
}
