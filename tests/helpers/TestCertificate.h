// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QSslCertificate>
#include <QSslConfiguration>
#include <QSslKey>

namespace tonearm::test {

/// A server's certificate that nobody trusts, and its key.
struct TestCertificate
{
    QSslCertificate certificate;
    QSslKey key;

    /// Makes one for 127.0.0.1, good for an hour, signed by itself.
    static TestCertificate make();
};

/// Lets this process trust a certificate for as long as it lives; for sessions that connect meanwhile.
class TrustedCertificate
{
public:
    explicit TrustedCertificate(const TestCertificate &trusted)
        : m_before(QSslConfiguration::defaultConfiguration())
    {
        QSslConfiguration trusting = m_before;
        trusting.addCaCertificate(trusted.certificate);
        QSslConfiguration::setDefaultConfiguration(trusting);
    }

    ~TrustedCertificate() { QSslConfiguration::setDefaultConfiguration(m_before); }

    TrustedCertificate(const TrustedCertificate &) = delete;
    TrustedCertificate &operator=(const TrustedCertificate &) = delete;

private:
    QSslConfiguration m_before;
};

} // namespace tonearm::test
