// SPDX-License-Identifier: GPL-3.0-or-later
#include "support/Digest.h"

#include "helpers/Printing.h"

#include <gtest/gtest.h>

#include <QCryptographicHash>

#include <random>
#include <utility>

namespace tonearm {

using namespace Qt::StringLiterals;

namespace {

using enum Digest::Algorithm;

QByteArray noise(std::mt19937 &random, qsizetype size)
{
    QByteArray bytes(size, Qt::Uninitialized);
    for (char &byte : bytes)
        byte = static_cast<char>(random());
    return bytes;
}

} // namespace

TEST(Digest, GivesThePublishedChecksums)
{
    EXPECT_EQ(digest(sha1, "").toHex(), "da39a3ee5e6b4b0d3255bfef95601890afd80709");
    EXPECT_EQ(digest(sha1, "abc").toHex(), "a9993e364706816aba3e25717850c26c9cd0d89d");
    EXPECT_EQ(digest(sha1, QByteArray(1000000, 'a')).toHex(), "34aa973cd4c4daa4f61eeb2bdbad27316534016f");
    EXPECT_EQ(sha256Hex(""), u"e3b0c44298fc1c149afbf4c8996fb92427ae41e4649b934ca495991b7852b855"_s);
    EXPECT_EQ(sha256Hex("abc"), u"ba7816bf8f01cfea414140de5dae2223b00361a396177a9cb410ff61f20015ad"_s);
    EXPECT_EQ(sha256Hex(QByteArray(1000000, 'a')),
              u"cdc76e5c9914fb9281a1c7e284d73e67f1809a48a497200e046d39ccc7112cd0"_s);
}

TEST(Digest, IsTheSameHoweverTheBytesAreCut)
{
    std::mt19937 random(1);
    for (int round = 0; round < 200; ++round) {
        const QByteArray bytes = noise(random, random() % 1000);
        Digest sum(sha256);
        for (qsizetype begin = 0; begin < bytes.size();) {
            const qsizetype length = std::min<qsizetype>(random() % 130, bytes.size() - begin);
            sum.add(QByteArrayView(bytes).sliced(begin, length));
            begin += length;
        }
        EXPECT_EQ(sum.finish(), QCryptographicHash::hash(bytes, QCryptographicHash::Sha256));
    }
}

TEST(Digest, CanBeHandedOnHalfway)
{
    Digest first(sha1);
    first.add("a");
    Digest second = std::move(first);
    second.add("bc");
    EXPECT_EQ(second.finish(), digest(sha1, "abc"));
}

} // namespace tonearm
