// SPDX-License-Identifier: GPL-3.0-or-later
#include "support/SerialExecutor.h"

#include <QMetaObject>

namespace tonearm {

SerialExecutor::SerialExecutor(const QString &name)
    : m_context(new QObject)
{
    m_thread.setObjectName(name);
    m_context->moveToThread(&m_thread);
    QObject::connect(&m_thread, &QThread::finished, m_context, &QObject::deleteLater);
    m_thread.start();
}

SerialExecutor::~SerialExecutor()
{
    post([this] {
        m_isClosing = true;
        quitIfDone();
    });
    m_thread.wait();
}

void SerialExecutor::post(std::function<void()> step)
{
    QMetaObject::invokeMethod(m_context, std::move(step), Qt::QueuedConnection);
}

void SerialExecutor::quitIfDone()
{
    if (m_isClosing && m_underWay == 0)
        m_thread.quit();
}

} // namespace tonearm
