// SPDX-License-Identifier: MIT
#pragma once

#include <Host/ToolApplication.h>
#include <Inspection/ExportDocument.h>
#include <TestKit/TemporaryHome.h>

#include <support/Documents.h>

#include <gtest/gtest.h>

#include <chrono>
#include <filesystem>

using Catalogue::Store;
using Inspection::checkKeys;
using Inspection::Document;
using Inspection::DocumentError;
using Inspection::Entry;
using Inspection::readDocument;
using Storage::SqliteStorage;

/// Stores on disk below a home folder of the test's own, and an application that the library can be bound to.
class Stores : public testing::Test {
protected:
    std::filesystem::path productFile() const { return m_home.path() / "stores/product-settings.sqlite"; }
    std::filesystem::path commonFile() const { return m_home.path() / "stores/common-settings.sqlite"; }

    /// Bound to the stores in `folder` below the home folder.
    Host::ToolApplication bound(char const* folder = "stores") const
    {
        Host::ToolApplication::Options options{m_home.path() / folder, Host::StorePolicy::leaveOutMissing};
        options.store.busyTimeout = std::chrono::milliseconds(100); // a test that locks a store waits for it to run out
        return Host::ToolApplication(m_productFile, options);
    }

    TestKit::TemporaryHome m_home;
    std::filesystem::path const m_productFile =
        m_home.write("product.json", R"({"vendorName": "V", "productName": "P", "sharedDataFolderName": "S", "productKind": 0,)"
                                     R"( "projectFileExtensions": [], "resourcesRoot": "r"})");
};
