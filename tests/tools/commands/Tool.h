// SPDX-License-Identifier: MIT
#pragma once

#include <TestKit/TemporaryHome.h>

#include <support/Process.h>

#include <gtest/gtest.h>

#include <cstdlib>
#include <filesystem>
#include <map>
#include <string>
#include <vector>

/// The program, run as its users run it, in a home folder of the test's own.
class Tool : public testing::Test {
protected:
    // The names of files are UTF-8, whoever runs the tests.
    Tool() { ::setenv("LC_ALL", "C.UTF-8", 1); }

    Ended tool(std::vector<std::string> arguments, std::map<std::string, std::string> const& environment = {})
    {
        arguments.insert(arguments.begin(), TOOL);
        return run(arguments, environment);
    }

    // What the tool prints, where it must succeed without a word on standard error.
    std::string said(std::vector<std::string> const& arguments)
    {
        Ended const ended = tool(arguments);
        EXPECT_EQ(ended.status, 0) << ended.err;
        EXPECT_EQ(ended.err, "");
        return ended.out;
    }

    // The error of a tool that must refuse, and print nothing.
    std::string refused(std::vector<std::string> const& arguments, int status = 1)
    {
        Ended const ended = tool(arguments);
        EXPECT_EQ(ended.status, status) << ended.err;
        EXPECT_EQ(ended.out, "");
        return ended.err;
    }

    // What the help of a verb lists under a heading: the first word of each line.
    std::vector<std::string> helpLists(std::string const& heading, std::vector<std::string> verb = {})
    {
        verb.emplace_back("--help");
        std::vector<std::string> result;
        bool isInside = false;
        for (std::string const& line : lines(said(verb))) {
            if (line.empty() || line[0] != ' ')
                isInside = line == heading + ":";
            else if (isInside && line[2] != ' ')
                result.push_back(line.substr(2, line.find(' ', 2) - 2));
        }
        return result;
    }

    std::vector<std::string> verbs()
    {
        std::vector<std::string> listed;
        for (char const* group : {"Look", "Change", "Keep", "Support"})
            for (std::string const& verb : helpLists(group))
                listed.push_back(verb);
        EXPECT_FALSE(listed.empty());
        return listed;
    }

    std::string inHome(char const* relative) const { return (m_home.path() / relative).string(); }
    std::string productFile() const { return inHome(".local/share/Lumora/Lumora Video Editor/product-settings.sqlite"); }
    std::string commonFile() const { return inHome(".local/share/Lumora/common-settings.sqlite"); }

    TestKit::TemporaryHome m_home;
};
