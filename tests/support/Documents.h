// SPDX-License-Identifier: MIT
//
// Stored values, and documents of an export as people would write them, also malformed ones.
#pragma once

#include <Storage/SqliteStorage.h>

#include <filesystem>
#include <map>
#include <string>
#include <vector>

using Bytes = std::vector<unsigned char>;
using Values = std::map<std::string, Storage::SqliteStorage::Value>;

inline Values valuesOf(std::filesystem::path const& file)
{
    Values values;
    if (std::filesystem::exists(file))
        for (Storage::SqliteStorage::Row const& row : Storage::SqliteStorage(file).rows())
            values[row.key] = row.value;
    return values;
}

inline void put(std::filesystem::path const& file, Values const& values)
{
    std::vector<Storage::SqliteStorage::Change> changes;
    for (auto const& [key, value] : values)
        changes.push_back({key, value});
    Storage::SqliteStorage(file).apply(changes);
}

/// A document of version 1 with these entries.
inline std::string document(std::string const& product, std::string const& common = "")
{
    return R"({"format": "editor-settings export", "version": 1, "stores": {"product": {)" + product + R"(}, "common": {)" + common + "}}}";
}

struct Malformed {
    char const* meaning;
    std::string content;
    std::string reason;
};

inline std::string const correct = "; correct it there, or export the file again";
inline std::string const nul = " a NUL stands there, which no text holds; save the file as UTF-8, or export it again";
inline std::string const makeOne = "give a file that 'editor-settings export' made";
inline std::string const writeTheKeySo =
    " is not how a key is written: a backslash is doubled, and only a byte that is not UTF-8 stands as \\xHH, "
    "in small letters; write it so";

/// A document whose first entry is good, so that it is seen that even that is not stored.
inline std::string after(std::string const& entries) { return document(R"("lastTarget": {"kind": "string", "value": "x"}, )" + entries); }

inline std::string repeated(std::string const& text, int times)
{
    std::string result;
    for (int time = 0; time < times; ++time)
        result += text;
    return result;
}

/// Those whose reason is the same for the reader of documents and on the command line.
inline std::vector<Malformed> malformedEverywhere()
{
    return {
        Malformed{"Truncated", document("").substr(0, 89),
                  "line 1, column 90: syntax error while parsing object - unexpected end of input; expected '}'" + correct},
        Malformed{"Array", "[1]", "the document is an array; give an object, between { and }"},
        Malformed{"NoFields", "{}", "format is missing, so this is no export of settings; " + makeOne},
        Malformed{"NestedDeeply",
                  after(R"("npsSendCount": {"kind": "int", "value": )" + repeated("{\"a\":", 500000) + "1" + repeated("}", 500000) + "}"),
                  "stores.product.npsSendCount.value.a.a.a.a is nested too deeply; " + makeOne},
        Malformed{"LongValueIsCut",
                  after(R"("mainWindowState": {"kind": "bytes", "value": ")" + std::string(98, 'A') + "\xC3\xBC" +
                        std::string(100000, 'A') + "\"}"),
                  "stores.product.mainWindowState.value is \"" + std::string(98, 'A') + "\xE2\x80\xA6; give bytes in base64"},
        Malformed{"KeyTwice", after(R"("lastTarget": {"kind": "string", "value": "y"})"),
                  "stores.product.lastTarget stands there twice; keep one of the two"},
        Malformed{"NulInAKey", after(R"("Indication/a\u0000b": {"kind": "bytes", "value": ""})"),
                  "stores.product.Indication/a\\x00b holds a NUL, which no key can; remove it"},
        Malformed{"OtherStore", document("", R"("exportPath": {"kind": "string", "value": "x"})"),
                  "stores.common.exportPath is kept in the other store; move it to stores.product"},
        Malformed{"OtherKind", after(R"("npsSendCount": {"kind": "string", "value": "1"})"),
                  "stores.product.npsSendCount.kind is \"string\", which the editor would not read; give a value of kind \"int\""}};
}
