// SPDX-License-Identifier: MIT
//
// Options that several verbs have in common, with what they are given.
#pragma once

#include "cli/Completion.h"
#include "commands/Transfer.h"
#include "terminal/Table.h"

#include <CLI/CLI.hpp>

#include <map>
#include <string>
#include <vector>

/// The help of --json.
extern char const* const asJson;
extern char const* const asJsonWithBytes;

/// --plain and --json of one verb.
class FormatOptions {
public:
    FormatOptions(CLI::App* verb, char const* json);

    // NOLINTNEXTLINE(google-explicit-constructor): it stands for the format wherever one is wanted
    operator Format() const { return m_json ? Format::json : m_plain ? Format::plain : Format::people; }

private:
    bool m_plain = false;
    bool m_json = false;
};

/// A verb that shows a setting under a name of its own, and changes it where a value is given.
struct ShortVerb {
    ShortVerb(CLI::App& app, char const* name, std::string const& description, char const* json = asJson);

    /// One word, or one for each element of a list; also an empty list where `isList`.
    void takeValue(char const* name, std::string const& description, bool isList);

    bool isToStore() const { return !words.empty() || empty; }
    void run(Host::Application const& application, std::string const& key) const;

    CLI::App* verb;
    FormatOptions format;
    std::vector<std::string> words;
    bool empty = false;
};

/// The verbs that carry stored values from one place to another.
struct TransferVerbs {
    explicit TransferVerbs(CLI::App& app);

    bool isDiff() const { return comparing->parsed(); }
    bool isExport() const { return exporting->parsed(); }
    bool isToStore() const { return importing->parsed() && !options.dryRun; }

    /// Whether stored values were compared and differ.
    bool run(Host::Application const& application) const;
    void addChoices(std::map<CLI::Option const*, Choice>& choices) const;

    std::vector<std::string> const classes = {"roaming", "local", "personal", "transient"};
    TransferOptions options;
    CLI::App* exporting;
    CLI::App* importing;
    CLI::App* comparing;
    FormatOptions importFormat;
    FormatOptions diffFormat;
};
