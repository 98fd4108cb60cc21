// SPDX-License-Identifier: GPL-3.0-or-later
#include "helpers/TestCertificate.h"

#include <openssl/evp.h>
#include <openssl/pem.h>
#include <openssl/x509v3.h>

#include <memory>

namespace tonearm::test {

namespace {

template <auto release> struct Release
{
    template <typename Object> void operator()(Object *object) const { release(object); }
};

using Key = std::unique_ptr<EVP_PKEY, Release<&EVP_PKEY_free>>;
using Certificate = std::unique_ptr<X509, Release<&X509_free>>;
using Extension = std::unique_ptr<X509_EXTENSION, Release<&X509_EXTENSION_free>>;
using Memory = std::unique_ptr<BIO, Release<&BIO_free>>;

void addExtension(X509 *certificate, int id, const char *value)
{
    X509V3_CTX context;
    X509V3_set_ctx(&context, certificate, certificate, nullptr, nullptr, 0);
    const Extension extension(X509V3_EXT_conf_nid(nullptr, &context, id, value));
    X509_add_ext(certificate, extension.get(), -1);
}

Certificate signedCertificate(EVP_PKEY *key)
{
    constexpr int version3 = 2;
    constexpr long minute = 60;
    Certificate certificate(X509_new());
    X509_set_version(certificate.get(), version3);
    ASN1_INTEGER_set(X509_get_serialNumber(certificate.get()), 1);
    X509_gmtime_adj(X509_getm_notBefore(certificate.get()), -minute);
    X509_gmtime_adj(X509_getm_notAfter(certificate.get()), 60 * minute);
    X509_set_pubkey(certificate.get(), key);
    X509_NAME *name = X509_get_subject_name(certificate.get());
    X509_NAME_add_entry_by_txt(name, "CN", MBSTRING_ASC, reinterpret_cast<const unsigned char *>("127.0.0.1"),
                               -1, -1, 0);
    X509_set_issuer_name(certificate.get(), name);
    addExtension(certificate.get(), NID_basic_constraints, "critical,CA:TRUE");
    addExtension(certificate.get(), NID_subject_alt_name, "IP:127.0.0.1");
    X509_sign(certificate.get(), key, EVP_sha256());
    return certificate;
}

template <typename Write> QByteArray pem(Write write)
{
    const Memory memory(BIO_new(BIO_s_mem()));
    write(memory.get());
    char *data = nullptr;
    const long size = BIO_get_mem_data(memory.get(), &data);
    return {data, size};
}

} // namespace

TestCertificate TestCertificate::make()
{
    const Key key(EVP_EC_gen("P-256"));
    const Certificate certificate = signedCertificate(key.get());
    const QByteArray certificateText = pem([&](BIO *out) { PEM_write_bio_X509(out, certificate.get()); });
    const QByteArray keyText = pem(
        [&](BIO *out) { PEM_write_bio_PrivateKey(out, key.get(), nullptr, nullptr, 0, nullptr, nullptr); });
    return {.certificate = QSslCertificate(certificateText), .key = QSslKey(keyText, QSsl::Ec)};
}

} // namespace tonearm::test
