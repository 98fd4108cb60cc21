// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QByteArray>
#include <QString>

#include <memory>

struct evp_md_ctx_st;

namespace tonearm {

/// A checksum fed piece by piece. OpenSSL does the work: it uses the processor's SHA instructions.
class Digest
{
public:
    enum class Algorithm { sha1, sha256 };

    explicit Digest(Algorithm algorithm);
    ~Digest();
    Digest(Digest &&) noexcept;
    Digest &operator=(Digest &&) noexcept;

    void add(QByteArrayView bytes);

    /// The checksum's bytes. The digest takes no more bytes afterwards.
    QByteArray finish();

private:
    struct Free
    {
        void operator()(evp_md_ctx_st *context) const;
    };

    std::unique_ptr<evp_md_ctx_st, Free> m_context;
};

/// The checksum of some bytes at once.
QByteArray digest(Digest::Algorithm algorithm, QByteArrayView bytes);

/// SHA-256 in lower-case hexadecimal.
QString sha256Hex(QByteArrayView bytes);

} // namespace tonearm
