// SPDX-License-Identifier: MIT
#include "cli/Completion.h"

#include "terminal/Escaping.h"

#include <Catalogue/Catalogue.h>
#include <Host/FileContent.h>
#include <Inspection/DeclaredKeys.h>
#include <Inspection/Locations.h>
#include <Inspection/PreferenceState.h>

#include <absl/strings/match.h>
#include <absl/strings/str_cat.h>

#include <algorithm>
#include <cstdlib>
#include <iostream>
#include <map>
#include <set>
#include <system_error>

namespace {

struct Candidate {
    std::string word;
    std::string description;
};

// What the words before the cursor lead to.
class Position {
public:
    Position(std::vector<Option> const& global, std::vector<Command> const& commands) : m_options(global), m_verbs(&commands) {}

    void take(std::string const& word)
    {
        if (m_awaiting) {
            if (word != "=") // bash makes a word of its own of it
                m_values[std::exchange(m_awaiting, nullptr)->name] = word;
        } else if (!m_onlyWords && word == "--") {
            m_onlyWords = true;
        } else if (isOption(word) && word != "-") {
            takeOption(word);
        } else {
            takeWord(word);
        }
    }

    bool isOption(std::string const& word) const { return !m_onlyWords && !word.empty() && word[0] == '-'; }
    /// The option whose value comes next; null where none does.
    Option const* awaiting() const { return m_awaiting; }
    std::vector<Option> const& options() const { return m_options; }
    std::vector<Command> const& verbs() const { return *m_verbs; }

    Option const* option(std::string const& name) const
    {
        auto const found = std::find_if(m_options.begin(), m_options.end(), [&](Option const& option) { return option.name == name; });
        return found == m_options.end() ? nullptr : &*found;
    }

    /// The positional word that comes next; null where none may.
    Option const* positional() const
    {
        std::size_t number = 0;
        for (Option const& option : m_options)
            if (option.isPositional() && (number++ == m_words || (option.isRepeated() && number <= m_words)))
                return &option;
        return nullptr;
    }

    /// The value given to an option, else its variable's; empty without.
    std::string value(std::string const& name) const
    {
        auto const found = m_values.find(name);
        char const* const variable = std::getenv(option(name)->variable.c_str());
        return found != m_values.end() ? found->second : variable ? variable : "";
    }

    /// Whether an option was given.
    bool isGiven(std::string const& name) const { return m_values.count(name) > 0; }

private:
    void takeOption(std::string const& word)
    {
        std::size_t const equals = word.find('=');
        Option const* const found = option(word.substr(0, equals));
        if (!found)
            return;
        if (found->takesValue() && equals == std::string::npos)
            m_awaiting = found;
        else
            m_values[found->name] = equals == std::string::npos ? "" : word.substr(equals + 1);
    }

    void takeWord(std::string const& word)
    {
        Command const* const verb = findVerb(*m_verbs, word);
        if (!verb) {
            ++m_words;
            return;
        }
        m_options.insert(m_options.end(), verb->options.begin(), verb->options.end());
        m_verbs = &verb->verbs;
        m_words = 0;
    }

    std::vector<Option> m_options;
    std::vector<Command> const* m_verbs;
    std::size_t m_words = 0;
    bool m_onlyWords = false;
    Option const* m_awaiting = nullptr;
    std::map<std::string, std::string> m_values;
};

std::filesystem::path productFile(Position const& position)
{
    std::string const named = position.value("--product");
    return named.empty() ? Host::installedProductFile() : std::filesystem::path(named);
}

// The library's alone where the product file cannot be used: there is nobody to tell.
std::vector<Candidate> keys(Position const& position)
{
    try {
        Inspection::readProductFile(productFile(position));
    } catch (Host::ProductFileError const&) {
    }
    std::vector<Candidate> result;
    for (std::string const& key : Inspection::keyNames())
        result.push_back({key, onOneLine(Inspection::purposeOf(key))});
    return result;
}

std::vector<Candidate> locationCandidates()
{
    std::vector<Candidate> result;
    for (std::string const& name : Inspection::locationNames()) {
        Catalogue::Location const* const location = Catalogue::findLocation(name);
        result.push_back({name, location ? location->purpose : Catalogue::findPreference(name)->purpose});
    }
    return result;
}

// None where the stores cannot be read: there is nobody to tell.
std::vector<Candidate> storedKeys(Position const& position)
try {
    std::string const home = position.value("--home");
    Storage::SqliteStorage::Options options;
    options.allowNetworkFileSystem = position.isGiven("--allow-network");
    Host::ToolApplication const application(
        Inspection::readProductFile(productFile(position)),
        {home.empty() ? std::nullopt : std::optional<std::filesystem::path>(home), Host::StorePolicy::leaveOutUnusable, options});
    std::set<std::string> offered; // a rational stands in two rows
    std::vector<Candidate> result;
    for (Storage::SqliteStorage const* const store : {application.productStorage(), application.commonStorage()})
        for (Storage::SqliteStorage::Row const& row : store ? store->rows() : std::vector<Storage::SqliteStorage::Row>()) {
            std::optional<Host::OwnKeys::Match> const own = Inspection::ownKeys().find(row.key);
            std::string const& key = own ? own->key : row.key;
            if (offered.insert(key).second)
                result.push_back({key, onOneLine(Inspection::purposeOf(key))});
        }
    return result;
} catch (std::exception const&) {
    return {};
}

std::vector<Candidate> candidatesFor(Option const& option, Position const& position)
{
    std::vector<Candidate> result;
    switch (option.candidates) {
    case Candidates::files:
        return {{":files", ""}};
    case Candidates::folders:
        return {{":folders", ""}};
    case Candidates::keys:
        return keys(position);
    case Candidates::storedKeys:
        return storedKeys(position);
    case Candidates::locations:
        return locationCandidates();
    case Candidates::none:
        break;
    }
    for (std::string const& word : option.accepted)
        result.push_back({word, ""});
    return result;
}

std::vector<Candidate> optionCandidates(Position const& position)
{
    std::vector<Candidate> result = {{"--help", "Print this help message and exit"},
                                     {"--version", "Display program version information and exit"}};
    for (Option const& option : position.options())
        if (!option.isPositional())
            result.push_back({option.name, option.help});
    return result;
}

// For "--store=c" the whole word, as shells replace all of it.
std::vector<Candidate> assignments(std::string const& word, Position const& position)
{
    std::string const name = word.substr(0, word.find('='));
    Option const* const option = position.option(name);
    std::vector<Candidate> result = option ? candidatesFor(*option, position) : std::vector<Candidate>();
    for (Candidate& candidate : result)
        if (candidate.word[0] != ':')
            candidate.word.insert(0, name + '=');
    return result;
}

std::vector<Candidate> candidatesAt(Position const& position, std::string const& word)
{
    if (position.awaiting())
        return candidatesFor(*position.awaiting(), position);
    if (position.isOption(word))
        return word.find('=') == std::string::npos ? optionCandidates(position) : assignments(word, position);
    std::vector<Candidate> result;
    for (Command const& verb : position.verbs())
        result.push_back({verb.name, verb.summary});
    if (Option const* const positional = position.positional(); result.empty() && positional)
        result = candidatesFor(*positional, position);
    return result;
}

} // namespace

void printCandidates(std::vector<Option> const& global, std::vector<Command> const& commands, std::vector<std::string> const& words)
{
    Position position(global, commands);
    for (std::size_t index = 0; index + 1 < words.size(); ++index)
        position.take(words[index]);
    std::string word = words.empty() ? "" : words.back();
    if (position.awaiting() && word == "=")
        word.clear();
    for (Candidate const& candidate : candidatesAt(position, word))
        if (candidate.word[0] == ':' || absl::StartsWith(candidate.word, word))
            std::cout << onOneLine(candidate.word) << '\t' << candidate.description << '\n';
}

void printCompletionScript(std::string const& shell)
{
    // Debian keeps scripts for zsh in a folder of its own name.
    static std::map<std::string, std::vector<char const*>> const files = {
        {"bash", {"bash-completion/completions/editor-settings"}},
        {"zsh", {"zsh/site-functions/_editor-settings", "zsh/vendor-completions/_editor-settings"}},
        {"fish", {"fish/vendor_completions.d/editor-settings.fish"}}};
    std::filesystem::path const share = Host::installedProductFile().parent_path().parent_path();
    std::string trouble;
    for (char const* const file : files.at(shell)) {
        try {
            std::cout << Host::fileContent(share / file);
            return;
        } catch (std::system_error const& error) {
            trouble = absl::StrCat("cannot read ", quoted((share / file).u8string()), " (", error.code().message(), ")");
        }
    }
    throw UserError(trouble + "; install the program again");
}
