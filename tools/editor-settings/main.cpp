// SPDX-License-Identifier: MIT
#include "Commands.h"
#include "Values.h"

#include <CLI/CLI.hpp>

#include <algorithm>
#include <iostream>

namespace {

constexpr int saidNo = 1;
constexpr int wrongUsage = 2;

char const* const footer = R"(Values are printed to standard output, reasons to standard error. Exit status:
  0  done
  1  said no: unknown key, wrong value, trouble with a store or the product file
  2  wrong usage

A value that begins with "-" goes after "--": editor-settings set lastTarget -- -x

With --plain a backslash is printed as \\, a tab as \t, line breaks as \n and \r, other control characters as \xHH, and
a list as a JSON array.)";

// CLI11 takes a word in square brackets apart at its commas, and takes "++" for the end of a verb's words. A mark before
// such a word, and before one that begins with the mark itself, keeps it whole; every option takes the mark off again.
constexpr char mark = '\x1f';

std::vector<std::string> marked(int argc, char** argv)
{
    std::vector<std::string> words(argv + 1, argv + argc);
    for (std::string& word : words)
        if (!word.empty() && (word[0] == '[' || word[0] == mark || word == "++"))
            word.insert(word.begin(), mark);
    std::reverse(words.begin(), words.end()); // as CLI11 wants them
    return words;
}

CLI::Validator unmarked()
{
    return {[](std::string& word) {
                if (!word.empty() && word[0] == mark)
                    word.erase(0, 1);
                return std::string();
            },
            ""};
}

CLI::Validator notEmpty()
{
    return {[](std::string& word) { return word.empty() ? "the name is empty; leave the option out for the default" : std::string(); }, ""};
}

// --plain and --json of one verb.
class FormatOptions {
public:
    explicit FormatOptions(CLI::App* verb)
    {
        CLI::Option* const plain = verb->add_flag("--plain", m_plain, "Tab-separated, one record a line, nothing shortened; for scripts");
        verb->add_flag("--json", m_json, "As JSON; bytes in base64")->excludes(plain);
    }

    operator Format() const { return m_json ? Format::json : m_plain ? Format::plain : Format::people; }

private:
    bool m_plain = false;
    bool m_json = false;
};

class CommandLine {
public:
    CommandLine()
    {
        m_app.require_subcommand(0, 1);
        m_app.failure_message([](CLI::App const* app, CLI::Error const& error) {
            std::string const verbs = app->get_subcommands().empty() ? "The verbs are list, get, set, unset and explain.\n" : "";
            return "editor-settings: " + std::string(error.what()) + '\n' + verbs + "Run with --help for more information.\n";
        });
        m_app.set_version_flag("--version", EDITOR_SETTINGS_VERSION);
        m_app.footer(footer);
        m_app.add_option("--product", m_productFile, "The product file, in JSON; default: the one that is installed with this program")
            ->transform(unmarked())
            ->check(notEmpty())
            ->type_name("FILE")
            ->envname("EDITOR_SETTINGS_PRODUCT");
        m_app.add_option("--home", m_home, "The folder of both stores; default: the product's data folder and the vendor's")
            ->transform(unmarked())
            ->check(notEmpty())
            ->type_name("DIR")
            ->envname("EDITOR_SETTINGS_HOME");

        m_list->add_option("PATTERN", m_listOptions.pattern, "Only keys that match, such as '*Path'")->transform(unmarked());
        CLI::Option* const onlySet = m_list->add_flag("--set", m_listOptions.onlySet, "Only what is stored");
        m_list->add_flag("--unset", m_listOptions.onlyUnset, "Only what is not stored")->excludes(onlySet);
        m_list->add_option("--store", m_listOptions.store, "Only one store")->type_name("")->check(CLI::IsMember({"product", "common"}));

        for (CLI::App* verb : {m_list, m_get, m_set, m_unset, m_explain})
            verb->fallthrough(); // --home and --product may stand behind the verb too
        for (CLI::App* verb : {m_get, m_set, m_unset, m_explain})
            verb->add_option("KEY", m_key, "The preference")->transform(unmarked())->required();
        CLI::Option* const words = m_set->add_option("VALUE", m_words,
                                                     "A bool as true or false, an int in decimal, text in UTF-8, bytes in base64 or as "
                                                     "@FILE, a list as one word for each element");
        words->transform(unmarked());
        CLI::Option* const empty = m_set->add_flag("--empty", "Stores an empty list")->excludes(words);
        m_set->callback([words, empty] {
            if (words->empty() && empty->empty())
                throw CLI::RequiredError("VALUE");
        });
    }

    int run(int argc, char** argv)
    {
        try {
            m_app.parse(marked(argc, argv));
            if (m_app.get_subcommands().empty())
                throw CLI::RequiredError("A verb");
        } catch (CLI::ParseError const& error) {
            int const status = m_app.exit(error) == 0 ? 0 : wrongUsage;
            checkPrinted();
            return status;
        }
        std::filesystem::path const productFile =
            m_productFile.empty() ? Host::installedProductFile() : std::filesystem::path(m_productFile);
        std::optional<std::filesystem::path> const home = m_home.empty() ? std::nullopt : std::optional<std::filesystem::path>(m_home);
        Host::Application const application(productFile, home);
        if (*m_list)
            listPreferences(application, m_listOptions, m_listFormat);
        if (*m_get)
            getPreference(application, m_key, m_getFormat);
        if (*m_set)
            setPreference(application, m_key, m_words);
        if (*m_unset)
            unsetPreference(application, m_key);
        if (*m_explain)
            explainPreference(application, m_key, m_explainFormat);
        checkPrinted();
        return 0;
    }

private:
    static void checkPrinted()
    {
        if (!std::cout.flush())
            throw Refusal("the answer could not be printed whole: standard output cannot be written");
    }

    CLI::App m_app{"Reads, changes and explains the preferences of Lumora Video Editor.", "editor-settings"};
    std::string m_productFile;
    std::string m_home;

    CLI::App* m_list = m_app.add_subcommand("list", "All preferences with their values, sorted by key");
    CLI::App* m_get = m_app.add_subcommand("get", "The value that the editor reads now");
    CLI::App* m_set = m_app.add_subcommand("set", "Stores a value");
    CLI::App* m_unset = m_app.add_subcommand("unset", "Removes the stored value, so that the default holds again");
    CLI::App* m_explain = m_app.add_subcommand("explain", "Where a value comes from: what is stored, since when, and the default");
    FormatOptions m_listFormat{m_list};
    FormatOptions m_getFormat{m_get};
    FormatOptions m_explainFormat{m_explain};
    ListOptions m_listOptions;
    std::string m_key;
    std::vector<std::string> m_words;
};

} // namespace

int main(int argc, char** argv)
{
    try {
        return CommandLine().run(argc, argv);
    } catch (std::exception const& error) {
        std::cerr << "editor-settings: " << error.what() << '\n';
        return saidNo;
    }
}
