// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/SleepInhibition.h"

#include "platform/BusCall.h"
#include "platform/SleepServices.h"

#include <utility>

namespace tonearm {

std::shared_ptr<SleepInhibition> SleepInhibition::begin(LazyBus &session, LazyBus &system,
                                                        const QString &reason)
{
    const std::shared_ptr<SleepInhibition> inhibition(new SleepInhibition(session, system, reason));
    inhibition->ask(0);
    return inhibition;
}

SleepInhibition::SleepInhibition(LazyBus &session, LazyBus &system, QString reason)
    : m_session(session)
    , m_system(system)
    , m_reason(std::move(reason))
{
}

void SleepInhibition::release()
{
    m_isReleased = true;
    giveBack();
}

void SleepInhibition::ask(qsizetype service)
{
    if (service == sleepServices().size())
        return;
    LazyBus &bus = sleepServices()[service].isOnSystemBus ? m_system : m_session;
    bus.use([self = shared_from_this(), service](const QDBusConnection &connection) {
        if (self->m_isReleased)
            return;
        const auto onReply = [self, connection, service](const QDBusMessage &reply) {
            self->takeAnswer(connection, service, reply);
        };
        callBus(connection, sleepServices()[service].request(self->m_reason), onReply);
    });
}

void SleepInhibition::takeAnswer(const QDBusConnection &bus, qsizetype service, const QDBusMessage &reply)
{
    const bool hasAgreed =
        reply.type() == QDBusMessage::ReplyMessage && reply.signature() == sleepServices()[service].answer;
    if (hasAgreed)
        m_agreement.emplace(Agreement{bus, reply, service});
    if (m_isReleased)
        giveBack();
    else if (!hasAgreed)
        ask(service + 1);
}

void SleepInhibition::giveBack()
{
    const std::optional<Agreement> agreement = std::exchange(m_agreement, std::nullopt);
    if (!agreement)
        return;
    const SleepService &service = sleepServices()[agreement->service];
    if (service.release)
        agreement->bus.send(service.release(agreement->reply.arguments().value(0)));
}

} // namespace tonearm
