// SPDX-License-Identifier: GPL-3.0-or-later
#include "support/Digest.h"

#include <openssl/evp.h>

#include <new>

namespace tonearm {

Digest::Digest(Algorithm algorithm)
    : m_context(EVP_MD_CTX_new())
{
    const EVP_MD *type = algorithm == Algorithm::sha1 ? EVP_sha1() : EVP_sha256();
    if (!m_context || EVP_DigestInit_ex(m_context.get(), type, nullptr) != 1)
        throw std::bad_alloc();
}

Digest::~Digest() = default;
Digest::Digest(Digest &&) noexcept = default;
Digest &Digest::operator=(Digest &&) noexcept = default;

void Digest::Free::operator()(evp_md_ctx_st *context) const
{
    EVP_MD_CTX_free(context);
}

void Digest::add(QByteArrayView bytes)
{
    EVP_DigestUpdate(m_context.get(), bytes.data(), static_cast<size_t>(bytes.size()));
}

QByteArray Digest::finish()
{
    QByteArray result(EVP_MD_CTX_get_size(m_context.get()), Qt::Uninitialized);
    EVP_DigestFinal_ex(m_context.get(), reinterpret_cast<unsigned char *>(result.data()), nullptr);
    return result;
}

QByteArray digest(Digest::Algorithm algorithm, QByteArrayView bytes)
{
    Digest sum(algorithm);
    sum.add(bytes);
    return sum.finish();
}

QString sha256Hex(QByteArrayView bytes)
{
    return QString::fromLatin1(digest(Digest::Algorithm::sha256, bytes).toHex());
}

} // namespace tonearm
