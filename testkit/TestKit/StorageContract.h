// SPDX-License-Identifier: MIT

/// @file
/// The contract of a store, as GoogleTest tests that a host runs over its own store:
///
///   struct MyBackend {
///       std::shared_ptr<ISettingsStorage> open(); // an empty store at the first call
///   };
///   namespace TestKit {
///   INSTANTIATE_TYPED_TEST_SUITE_P(MyStore, StorageContract, MyBackend);
///   }
///
/// Each test has a new backend. `open` may be called again, also while the earlier store lives, and returns a store with
/// the same content; a backend in memory returns the same store.
#pragma once

#include <Settings/ISettingsStorage.h>

#include <gtest/gtest.h>

#include <limits>
#include <memory>
#include <string>
#include <thread>
#include <vector>

namespace TestKit {

/// Bytes, as a store takes them.
using Bytes = std::vector<unsigned char>;

/// The tests that every store passes, on the one that `Backend` opens.
template <typename Backend>
class StorageContract : public testing::Test {
protected:
    Backend m_backend;                                            ///< A new one for each test.
    std::shared_ptr<ISettingsStorage> m_store = m_backend.open(); ///< Its store, empty.
};

TYPED_TEST_SUITE_P(StorageContract);

TYPED_TEST_P(StorageContract, AbsentKeyGivesTheDefaultOfEachKind)
{
    EXPECT_TRUE(this->m_store->getBool("absent", true));
    EXPECT_FALSE(this->m_store->getBool("absent", false));
    EXPECT_EQ(this->m_store->getInt("absent", -7), -7);
    EXPECT_EQ(this->m_store->getString("absent", "default"), "default");
    EXPECT_EQ(this->m_store->getBytes("absent", Bytes{1, 2}), (Bytes{1, 2}));
    EXPECT_FALSE(this->m_store->contains("absent"));
}

TYPED_TEST_P(StorageContract, BoolIsReadBack)
{
    this->m_store->setBool("yes", true);
    this->m_store->setBool("no", false);
    EXPECT_TRUE(this->m_store->getBool("yes", false));
    EXPECT_FALSE(this->m_store->getBool("no", true));
}

TYPED_TEST_P(StorageContract, IntIsReadBackOverItsWholeRange)
{
    for (int const value : {std::numeric_limits<int>::min(), -1, 0, 1, std::numeric_limits<int>::max()}) {
        this->m_store->setInt("int", value);
        EXPECT_EQ(this->m_store->getInt("int", 42), value);
    }
}

TYPED_TEST_P(StorageContract, StringIsReadBackWhole)
{
    std::string const values[] = {"",
                                  "plain",
                                  std::string("nul\0inside", 10),
                                  std::string("\0", 1),
                                  "gr\xC3\xBC\xC3\x9F \xF0\x9F\x8E\xAC",
                                  "not UTF-8: \xFF\xC3",
                                  "line\nbreak\r\n",
                                  std::string(1 << 20, 'x')};
    for (std::string const& value : values) {
        this->m_store->setString("string", value);
        EXPECT_EQ(this->m_store->getString("string", "default"), value);
    }
}

TYPED_TEST_P(StorageContract, BytesAreReadBackWhole)
{
    Bytes everyByte;
    for (int byte = 0; byte < 256; ++byte)
        everyByte.push_back(static_cast<unsigned char>(byte));
    for (Bytes const& value : {Bytes{}, Bytes{0}, everyByte, Bytes(1 << 20, 0xA5)}) {
        this->m_store->setBytes("bytes", value);
        EXPECT_EQ(this->m_store->getBytes("bytes", Bytes{9}), value);
    }
}

TYPED_TEST_P(StorageContract, EmptyValuesAreStoredNotAbsent)
{
    this->m_store->setString("string", "");
    this->m_store->setBytes("bytes", Bytes{});
    EXPECT_TRUE(this->m_store->contains("string"));
    EXPECT_TRUE(this->m_store->contains("bytes"));
    EXPECT_EQ(this->m_store->getString("string", "default"), "");
    EXPECT_EQ(this->m_store->getBytes("bytes", Bytes{9}), Bytes{});
}

TYPED_TEST_P(StorageContract, LaterValueReplacesTheEarlier)
{
    this->m_store->setString("key", "earlier, and longer");
    this->m_store->setString("key", "later");
    EXPECT_EQ(this->m_store->getString("key", ""), "later");
}

TYPED_TEST_P(StorageContract, KeysDifferInCaseLengthAndScript)
{
    std::string const keys[] = {"key", "Key", "key ", "key/sub", "k", "", "schl\xC3\xBCssel", "Indication/a%2b", std::string("k\0y", 3)};
    int number = 0;
    for (std::string const& key : keys)
        this->m_store->setInt(key, ++number);
    number = 0;
    for (std::string const& key : keys)
        EXPECT_EQ(this->m_store->getInt(key, -1), ++number) << "key: " << key;
}

TYPED_TEST_P(StorageContract, AnotherKindGivesTheDefaultAndStaysUntouched)
{
    this->m_store->setString("string", "7");
    EXPECT_TRUE(this->m_store->getBool("string", true));
    EXPECT_EQ(this->m_store->getInt("string", 42), 42);
    EXPECT_EQ(this->m_store->getBytes("string", Bytes{9}), Bytes{9});
    EXPECT_EQ(this->m_store->getString("string", ""), "7");
    this->m_store->setInt("int", 1);
    EXPECT_FALSE(this->m_store->getBool("int", false));
    EXPECT_EQ(this->m_store->getString("int", "default"), "default");
    EXPECT_EQ(this->m_store->getInt("int", 0), 1);
    this->m_store->setBool("bool", true);
    EXPECT_EQ(this->m_store->getInt("bool", 42), 42);
    this->m_store->setBytes("bytes", Bytes{'a'});
    EXPECT_EQ(this->m_store->getString("bytes", "default"), "default");
}

TYPED_TEST_P(StorageContract, SetReplacesTheKindToo)
{
    this->m_store->setString("key", "text");
    this->m_store->setInt("key", 5);
    EXPECT_EQ(this->m_store->getInt("key", 0), 5);
    EXPECT_EQ(this->m_store->getString("key", "default"), "default");
}

TYPED_TEST_P(StorageContract, RemoveForgetsOneKey)
{
    this->m_store->setInt("gone", 1);
    this->m_store->setInt("kept", 2);
    this->m_store->remove("gone");
    this->m_store->remove("never there");
    EXPECT_FALSE(this->m_store->contains("gone"));
    EXPECT_EQ(this->m_store->getInt("gone", 9), 9);
    EXPECT_TRUE(this->m_store->contains("kept"));
    EXPECT_EQ(this->m_store->getInt("kept", 9), 2);
}

TYPED_TEST_P(StorageContract, AnotherOpeningSeesWhatWasSet)
{
    this->m_store->setInt("int", 7);
    std::shared_ptr<ISettingsStorage> const other = this->m_backend.open();
    EXPECT_EQ(other->getInt("int", 0), 7);
    other->setString("string", "from the other");
    EXPECT_EQ(this->m_store->getString("string", ""), "from the other");
    other->remove("int");
    EXPECT_FALSE(this->m_store->contains("int"));
}

TYPED_TEST_P(StorageContract, ThreadsMayCallSideBySide)
{
    constexpr int threadCount = 4;
    constexpr int rounds = 25;
    std::vector<std::thread> threads;
    for (int id = 0; id < threadCount; ++id) {
        threads.emplace_back([this, id] {
            std::string const own = "own" + std::to_string(id);
            for (int round = 1; round <= rounds; ++round) {
                this->m_store->setInt(own, round);
                this->m_store->setString("shared", std::string(100, static_cast<char>('a' + id)));
                EXPECT_EQ(this->m_store->getInt(own, 0), round);
                std::string const shared = this->m_store->getString("shared", "");
                EXPECT_EQ(shared, std::string(100, shared.empty() ? '?' : shared[0])) << "a torn value";
                this->m_store->setBool(own + " passing", true);
                EXPECT_TRUE(this->m_store->contains(own + " passing"));
                this->m_store->remove(own + " passing");
            }
        });
    }
    for (std::thread& thread : threads)
        thread.join();
    for (int id = 0; id < threadCount; ++id)
        EXPECT_EQ(this->m_store->getInt("own" + std::to_string(id), 0), rounds);
}

REGISTER_TYPED_TEST_SUITE_P(StorageContract, AbsentKeyGivesTheDefaultOfEachKind, BoolIsReadBack, IntIsReadBackOverItsWholeRange,
                            StringIsReadBackWhole, BytesAreReadBackWhole, EmptyValuesAreStoredNotAbsent, LaterValueReplacesTheEarlier,
                            KeysDifferInCaseLengthAndScript, AnotherKindGivesTheDefaultAndStaysUntouched, SetReplacesTheKindToo,
                            RemoveForgetsOneKey, AnotherOpeningSeesWhatWasSet, ThreadsMayCallSideBySide);

} // namespace TestKit
