// SPDX-License-Identifier: MIT
//
// A verb of the command line as data. The parser, the help, the manual page and completion are all made from it.
#pragma once

#include "terminal/Table.h"

#include <Catalogue/Catalogue.h>
#include <Host/ToolApplication.h>
#include <Inspection/studio/StudioServer.h>

#include <filesystem>
#include <functional>
#include <optional>
#include <string>
#include <utility>
#include <variant>
#include <vector>

/// What completes a word, beside the words that it must be one of.
enum class Candidates { none, files, folders, keys, storedKeys, locations };

/// An option, or a positional word, which has no dashes before its name. The target must outlive the parsing.
struct Option {
    /// A flag sets a bool, an option with a value or one word sets a text, and a vector takes all words or all values.
    using Target = std::variant<bool*, std::string*, std::vector<std::string>*>;

    Option(std::string optionName, Target parsed, std::string text) : name(std::move(optionName)), target(parsed), help(std::move(text)) {}

    Option required() const
    {
        return with([](Option& option) { option.isRequired = true; });
    }
    /// The name of the value in the help.
    Option of(std::string const& value) const
    {
        return with([&](Option& option) { option.valueName = value; });
    }
    /// One word at most, where the target takes several.
    Option single() const
    {
        return with([](Option& option) { option.isSingle = true; });
    }
    /// The only words that are accepted.
    Option oneOf(std::vector<std::string> const& words) const
    {
        return with([&](Option& option) { option.accepted = words; });
    }
    Option completedBy(Candidates kind) const
    {
        return with([&](Option& option) { option.candidates = kind; });
    }
    /// The option or word may not stand beside these.
    Option excluding(std::vector<std::string> const& names) const
    {
        return with([&](Option& option) { option.excluded = names; });
    }
    /// What is wrong with an empty word, and what to do; an empty word is accepted without.
    Option refusingEmpty(std::string const& reason) const
    {
        return with([&](Option& option) { option.refusalOfEmpty = reason; });
    }
    /// The variable of the environment that stands in where the option is not given.
    Option fromEnvironment(std::string const& environment) const
    {
        return with([&](Option& option) { option.variable = environment; });
    }

    bool isPositional() const { return name.front() != '-'; }
    bool takesValue() const { return !std::holds_alternative<bool*>(target); }
    bool isRepeated() const { return std::holds_alternative<std::vector<std::string>*>(target) && !isSingle; }

    std::string name;
    Target target;
    std::string help;
    std::string valueName;
    bool isRequired = false;
    bool isSingle = false;
    std::vector<std::string> accepted;
    Candidates candidates = Candidates::none;
    std::vector<std::string> excluded;
    std::string refusalOfEmpty;
    std::string variable;

private:
    template <typename Change>
    Option with(Change const& change) const
    {
        Option changed = *this;
        change(changed);
        return changed;
    }
};

/// The file that a verb reads or writes.
Option fileOption(std::string const& name, std::string& target, std::string const& help);

/// A command that shows what a verb is for.
struct Example {
    std::string command; ///< As it is typed in a shell.
    std::string effect;  ///< A sentence, which names the exit status where that is not 0.
};

/// What a verb does with the stores.
enum class StoreUse {
    none,        ///< It opens none.
    read,        ///< It reads what is stored; a missing store is empty.
    readQuietly, ///< It reads likewise, and explains itself what an odd home folder decides.
    readUsable,  ///< It reads what can be read; an unusable store is left out.
    change,      ///< It changes a store, and creates one that is missing.
    merge,       ///< It changes stores after all else has succeeded, and creates missing ones itself.
    replace,     ///< It replaces whole stores, also unusable ones.
};

/// What a verb does with the settings that a studio shares, where the product names a server.
enum class StudioUse {
    none,   ///< It is about this workstation's stores.
    look,   ///< It answers as an editor would, and with the workstation's values alone where the server is away.
    change, ///< It changes what an editor would.
};

/// What a user wants from a verb; the help lists the verbs by it.
enum class Group { look, change, keep, support };

/// What a verb is run with.
struct Invocation {
    std::filesystem::path productFile;
    std::optional<std::filesystem::path> storeFolder;
    Storage::SqliteStorage::Options options;
    Host::ToolApplication const* application = nullptr; ///< Null where the verb opens no store.
    Inspection::StudioServer* studio = nullptr;         ///< Null where the product shares nothing, or it cannot be loaded.
};

struct Command {
    std::string name;
    std::string summary;
    std::vector<Option> options;
    std::vector<Example> examples;
    /// Asked after the words are parsed.
    std::function<StoreUse()> stores;
    /// The only store that the words ask for; nullopt for both. Asked once the product's own keys are known.
    std::function<std::optional<Catalogue::Store>()> onlyStore = {};
    /// Prints the answer and returns the exit status. Throws `UserError`, `Storage::StorageError` and the like.
    std::function<int(Invocation const&)> run;
    /// The verbs below this one, one of which must follow it.
    std::vector<Command> verbs = {};
    /// What is wrong with the words together, such as "VALUE is required"; empty if they are right.
    std::function<std::string()> wrongWords = {};
    Group group = Group::keep;
    StudioUse studio = StudioUse::none;
    /// What users of other programs may call it; the error for such a word leads here.
    std::vector<std::string> otherNames = {};
    bool isLong = false;      ///< Whether the answer may be longer than a screen.
    int errorStatus = 1;      ///< The exit status of an error.
    bool needsProduct = true; ///< Whether it asks for the product file.
    bool namesFile = false;   ///< Whether an error is about the file that the user named rather than about the stores.
};

/// The verb called `name`; null for none.
Command const* findVerb(std::vector<Command> const& commands, std::string const& name);

/// A function that returns `use`.
std::function<StoreUse()> always(StoreUse use);

/// The choice of --plain and --json.
struct FormatChoice {
    bool plain = false;
    bool json = false;

    // NOLINTNEXTLINE(google-explicit-constructor): it stands for the format wherever one is wanted
    operator Format() const { return json ? Format::json : plain ? Format::plain : Format::people; }
};

inline char const* const jsonHelp = "As JSON";
inline char const* const jsonHelpWithBytes = "As JSON; bytes in base64";

/// `options` behind --plain and --json, whose help is `json`.
std::vector<Option> withFormat(FormatChoice& choice, char const* json, std::vector<Option> options = {});
