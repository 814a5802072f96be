// SPDX-License-Identifier: MIT
#pragma once

#include <Host/Application.h>
#include <Inspection/ExportDocument.h>
#include <Storage/SqliteStorage.h>
#include <TestKit/TemporaryHome.h>

#include <gtest/gtest.h>

#include <filesystem>
#include <map>
#include <string>
#include <vector>

using Catalogue::Store;
using Inspection::checkKeys;
using Inspection::Document;
using Inspection::DocumentError;
using Inspection::Entry;
using Inspection::readDocument;
using Storage::SqliteStorage;
using Bytes = std::vector<unsigned char>;
using Values = std::map<std::string, SqliteStorage::Value>;

/// A document of version 1 with these entries, as a person would write it.
inline std::string document(std::string const& product, std::string const& common = "")
{
    return R"({"format": "editor-settings export", "version": 1, "stores": {"product": {)" + product + R"(}, "common": {)" + common + "}}}";
}

/// Stores on disk below a home folder of the test's own, and an application that the library can be bound to.
class Stores : public testing::Test {
protected:
    std::filesystem::path productFile() const { return m_home.path() / "stores/product-settings.sqlite"; }
    std::filesystem::path commonFile() const { return m_home.path() / "stores/common-settings.sqlite"; }

    static Values valuesOf(std::filesystem::path const& file)
    {
        Values values;
        if (std::filesystem::exists(file))
            for (SqliteStorage::Row const& row : SqliteStorage(file).rows())
                values[row.key] = row.value;
        return values;
    }

    static void put(std::filesystem::path const& file, Values const& values)
    {
        std::vector<SqliteStorage::Change> changes;
        for (auto const& [key, value] : values)
            changes.push_back({key, value});
        SqliteStorage(file).apply(changes);
    }

    /// Bound to the stores in `folder` below the home folder.
    Host::Application bound(char const* folder = "stores") const
    {
        return Host::Application(m_productFile, m_home.path() / folder, Host::StorePolicy::leaveOutMissing);
    }

    TestKit::TemporaryHome m_home;
    std::filesystem::path const m_productFile =
        m_home.write("product.json", R"({"vendorName": "V", "productName": "P", "sharedDataFolderName": "S", "productKind": 0,)"
                                     R"( "projectFileExtensions": [], "resourcesRoot": "r"})");
};
