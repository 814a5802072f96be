// SPDX-License-Identifier: MIT
#pragma once

#include <Settings/Settings.h>
#include <TestKit/FixedProductInfo.h>
#include <TestKit/MemoryStorage.h>
#include <TestKit/Recording.h>
#include <TestKit/ScopedBinding.h>
#include <TestKit/TemporaryHome.h>

#include <gtest/gtest.h>

#include <memory>
#include <ostream>
#include <string>
#include <vector>

// Lets GoogleTest print what it compares.
inline void PrintTo(QString const& text, std::ostream* stream) { *stream << '"' << text.toStdString() << '"'; }

using Calls = std::vector<std::string>;

/// The library bound to recording collaborators, with a home folder of the test's own.
class BoundLibrary : public testing::Test {
protected:
    /// What the collaborators were asked since the last time this was called.
    Calls calls() { return m_log->take(); }

    /// A folder or file below the home folder.
    QString inHome(char const* relative) const { return QString::fromStdString((m_home.path() / relative).string()); }

    TestKit::TemporaryHome m_home;
    std::shared_ptr<TestKit::CallLog> m_log = std::make_shared<TestKit::CallLog>();
    std::shared_ptr<TestKit::FixedProductInfo> m_product = std::make_shared<TestKit::FixedProductInfo>();
    std::shared_ptr<TestKit::RecordingProductInfo> m_productInfo = std::make_shared<TestKit::RecordingProductInfo>(m_log, m_product);
    std::shared_ptr<TestKit::MemoryStorage> m_commonValues = std::make_shared<TestKit::MemoryStorage>();
    std::shared_ptr<TestKit::MemoryStorage> m_productValues = std::make_shared<TestKit::MemoryStorage>();
    std::shared_ptr<TestKit::RecordingStorage> m_common = std::make_shared<TestKit::RecordingStorage>("common", m_log, m_commonValues);
    std::shared_ptr<TestKit::RecordingStorage> m_productStore =
        std::make_shared<TestKit::RecordingStorage>("product", m_log, m_productValues);
    TestKit::ScopedBinding m_binding{{m_productInfo, m_common, m_productStore, Lumora::ioPath("/resources")}};
};
