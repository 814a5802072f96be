// SPDX-License-Identifier: MIT
//
// Stores on a network file system, as NetworkFolder.cpp simulates one: the tool uses them only on request.
#include <tools/commands/Tool.h>

#include <Storage/SqliteStorage.h>

#include <support/Json.h>

namespace {

class NetworkStores : public Tool {
protected:
    void SetUp() override
    {
        Storage::SqliteStorage(inHome("stores/product-settings.sqlite")).setInt("npsSendCount", 3);
        Storage::SqliteStorage(inHome("stores/common-settings.sqlite"));
    }

    Ended onNetwork(std::vector<std::string> arguments)
    {
        arguments.insert(arguments.end(), {"--home", inHome("stores")});
        return asOnNetwork(arguments);
    }

    Ended asOnNetwork(std::vector<std::string> const& arguments)
    {
        return tool(arguments, {{"TEST_NETWORK_FOLDER", std::filesystem::canonical(inHome("stores"))},
                                {"LD_PRELOAD", INTERPOSED},
                                {"ASAN_OPTIONS", "verify_asan_link_order=0:detect_leaks=0"}});
    }

    std::string reasonFor(char const* store) const
    {
        return "editor-settings: " + inHome("stores/") + store +
               ": cannot open the store: it lies on a network file system, where locks do not hold between machines, so that two programs "
               "can damage it; keep it on a local disk\n";
    }
};

TEST_F(NetworkStores, AreNeitherReadNorChanged)
{
    for (std::vector<std::string> const& arguments :
         {std::vector<std::string>{"get", "npsSendCount"}, {"list"}, {"set", "npsSendCount", "4"}, {"unset", "npsSendCount"}}) {
        Ended const ended = onNetwork(arguments);
        EXPECT_EQ(ended.status, 1);
        EXPECT_EQ(ended.out, "");
        EXPECT_EQ(ended.err, reasonFor(arguments[0] == "get" ? "product-settings.sqlite" : "common-settings.sqlite") +
                                 "Run 'editor-settings doctor' with the same options to see what is wrong; 'editor-settings restore FILE' "
                                 "brings a backup back.\nWhere no other machine uses the stores, '--allow-network' allows it.\n");
    }
    EXPECT_EQ(said({"get", "npsSendCount", "--home", inHome("stores")}), "3\n");
}

TEST_F(NetworkStores, AreReadAndChangedWhereItIsAllowed)
{
    EXPECT_EQ(onNetwork({"get", "npsSendCount", "--allow-network"}).out, "3\n");
    EXPECT_EQ(onNetwork({"set", "npsSendCount", "4", "--allow-network"}).err, "");
    EXPECT_EQ(onNetwork({"--allow-network", "get", "npsSendCount"}).out, "4\n");
}

TEST_F(NetworkStores, AreLookedAtForCompletionWhereItIsAllowed)
{
    EXPECT_EQ(asOnNetwork({"complete", "--", "--allow-network", "unset", "--home", inHome("stores"), ""}).out,
              "npsSendCount\tSurvey answers sent\n");
    EXPECT_EQ(asOnNetwork({"complete", "--", "unset", "--home", inHome("stores"), ""}).out, "");
}

TEST_F(NetworkStores, AreImportedAndRestoredWhereItIsAllowed)
{
    ASSERT_EQ(onNetwork({"backup", inHome("copy.backup"), "--allow-network"}).status, 0);
    ASSERT_EQ(onNetwork({"export", inHome("settings.json"), "--allow-network"}).status, 0);
    std::filesystem::remove(inHome("stores/product-settings.sqlite"));
    EXPECT_EQ(onNetwork({"import", inHome("settings.json"), "--allow-network"}).status, 0);
    EXPECT_EQ(onNetwork({"get", "npsSendCount", "--allow-network"}).out, "3\n");
    EXPECT_EQ(onNetwork({"set", "npsSendCount", "4", "--allow-network"}).status, 0);
    EXPECT_EQ(onNetwork({"restore", inHome("copy.backup")}).status, 1);
    EXPECT_EQ(onNetwork({"get", "npsSendCount", "--allow-network"}).out, "4\n");
    EXPECT_EQ(onNetwork({"restore", inHome("copy.backup"), "--allow-network"}).status, 0);
    EXPECT_EQ(onNetwork({"get", "npsSendCount", "--allow-network"}).out, "3\n");
}

TEST_F(NetworkStores, AreNamedByTheDoctor)
{
    for (char const* allowed : {"", "--allow-network"}) {
        std::vector<std::string> arguments = {"doctor", "--json"};
        if (*allowed)
            arguments.emplace_back(allowed);
        json const report = parsed(onNetwork(arguments).out);
        EXPECT_EQ(report["facts"]["stores"][0]["state"], *allowed ? "usable" : "unusable");
        int named = 0;
        for (json const& finding : report["findings"])
            if (finding["check"] == "file-system") {
                EXPECT_NE(finding["what"].get<std::string>().find(", where locks do not hold between machines"), std::string::npos);
                ++named;
            }
        EXPECT_EQ(named, 2);
    }
}

} // namespace
