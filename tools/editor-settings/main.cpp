// SPDX-License-Identifier: MIT
#include "cli/Arguments.h"
#include "cli/CommandWalk.h"
#include "cli/Completion.h"
#include "cli/HelpTexts.h"
#include "cli/ManualPage.h"
#include "cli/UsageErrors.h"
#include "cli/VerbOptions.h"
#include "commands/Backups.h"
#include "commands/Doctor.h"
#include "commands/Examples.h"
#include "commands/HomeFolder.h"
#include "commands/Monitor.h"
#include "commands/NextName.h"
#include "commands/Paths.h"
#include "commands/Preferences.h"
#include "commands/Reference.h"
#include "terminal/Escaping.h"
#include "terminal/Pager.h"
#include "terminal/ProgressLine.h"
#include "terminal/Streams.h"
#include "terminal/Terminal.h"
#include <Inspection/PreferenceState.h>

#include <absl/strings/str_cat.h>

#include <Inspection/Locations.h>
#include <Inspection/PreferenceState.h>
#include <Settings/Version.h>

#include <CLI/CLI.hpp>

#include <algorithm>
#include <cstdlib>
#include <iostream>
#include <map>
#include <optional>

using Inspection::storage;

namespace {

constexpr int saidNo = 1;
constexpr int wrongUsage = 2;
constexpr int different = 1; // of diff, which then says no with the status of wrong usage, as programs of that name do

class CommandLine {
public:
    CommandLine()
    {
        m_app.require_subcommand(0, 1);
        m_app.failure_message([](CLI::App const* app, CLI::Error const& error) {
            return "editor-settings: " + shortened(withoutControls(unmarked(std::string(error.what()))), 500) + '\n' + adviceOnWords(*app) +
                   std::string("Run with --help for more information.") + '\n';
        });
        m_app.set_version_flag("--version", EDITOR_SETTINGS_VERSION_STRING, "Display program version information and exit");
        m_app.footer(helpFooter());
        addWhatStandsForAll();
        addPreferenceVerbs();
        addLocationVerbs();
        addShortVerbs();
        addUpkeepVerbs();
        addPages();
        m_completion->add_option("SHELL", m_shell, "bash, zsh or fish")->required()->type_name("")->check(oneOf({"bash", "zsh", "fish"}));

        for (CLI::App* verb : m_app.get_subcommands([](CLI::App*) { return true; }))
            complete(verb, verb->get_name());
        for (CLI::App* kind : {m_nextAudio, m_nextFreeze, m_nextStabilized})
            complete(kind, "next-name " + kind->get_name());
    }

    // What to do about trouble, on a line of its own; empty where its text says all.
    std::string adviceOn(std::exception const& trouble) const
    {
        bool const isAboutAFileOfItsOwn = m_hasOpened && (*m_backup || *m_restore || m_transfer.isExport());
        if (dynamic_cast<Host::ProductFileError const*>(&trouble))
            return std::string("Name a product file with '--product FILE', or in EDITOR_SETTINGS_PRODUCT.") + '\n';
        if (dynamic_cast<Storage::StorageError const*>(&trouble) && !isAboutAFileOfItsOwn)
            return std::string("Run 'editor-settings doctor' with the same options to see what is wrong; "
                               "'editor-settings restore FILE' brings a backup back.") +
                   '\n';
        return {};
    }

    // The exit status for trouble.
    int statusOfTrouble() const { return m_transfer.isDiff() ? wrongUsage : saidNo; }

    int run(int argc, char** argv)
    {
        if (std::optional<int> const status = statusOfWords(argc, argv))
            return *status;
        Terminal::chooseColors(colors.at(m_color));
        std::optional<Pager> pager;
        if (isLong() && !m_withoutPager && Pager::isOfUse())
            pager.emplace();
        std::filesystem::path const productFile =
            m_productFile.empty() ? Host::installedProductFile() : std::filesystem::path(m_productFile);
        if (!m_page.empty()) {
            *m_list ? printPreferencesPage(productFile) : printLocationsPage(productFile);
            return 0;
        }
        std::optional<std::filesystem::path> const home = m_home.empty() ? std::nullopt : std::optional<std::filesystem::path>(m_home);
        if (*m_doctor)
            return examineAll(productFile, home, m_doctorFormat) ? 0 : saidNo;
        lookForTheHome();
        std::optional<Progress> opening(1);
        opening->next("opening the stores");
        Host::Application const application(productFile, home, policy());
        opening.reset();
        m_hasOpened = true;
        noteStoresThatTakeNoChange(application);
        answer(application);
        return m_transfer.run(application) ? different : 0;
    }

private:
    // Reads the words. The exit status where that is all there is to do.
    std::optional<int> statusOfWords(int argc, char** argv)
    {
        try {
            m_app.parse(markedArguments(argc, argv));
            if (m_app.get_subcommands().empty())
                throw CLI::RequiredError("A verb");
        } catch (CLI::ParseError const& error) {
            return m_app.exit(error) == 0 ? 0 : wrongUsage;
        }
        if (!*m_manual && !*m_completion)
            return std::nullopt;
        std::cout << (*m_manual ? manualPage(m_app) : completionScript(m_app, choices(), m_shell));
        return 0;
    }

    inline static std::map<std::string, Terminal::Colors> const colors = {
        {"auto", Terminal::Colors::automatic}, {"always", Terminal::Colors::always}, {"never", Terminal::Colors::never}};

    // What stands for all verbs may stand behind each too.
    static void complete(CLI::App* verb, std::string const& path)
    {
        verb->fallthrough();
        verb->footer(helpExamples(path));
    }

    void addWhatStandsForAll()
    {
        m_app.add_option("--color", m_color, "Colours: auto for a terminal alone, always, or never; default: auto")
            ->type_name("WHEN")
            ->check(oneOf({"auto", "always", "never"}));
        m_app.add_flag("--no-pager", m_withoutPager, "Long answers as they are, not a screen at a time");
        m_app.add_option("--product", m_productFile, "The product file, in JSON; default: the one that is installed with this program")
            ->transform(unmarked())
            ->check(aNameIfGiven())
            ->type_name("FILE")
            ->envname("EDITOR_SETTINGS_PRODUCT");
        m_app.add_option("--home", m_home, "The folder of both stores; default: the product's data folder and the vendor's")
            ->transform(unmarked())
            ->check(aNameIfGiven())
            ->type_name("DIR")
            ->envname("EDITOR_SETTINGS_HOME");
    }

    void addPreferenceVerbs()
    {
        m_list->add_option("PATTERN", m_listOptions.pattern, "Only keys that match, such as '*Path'")->transform(unmarked());
        CLI::Option* const onlySet = m_list->add_flag("--set", m_listOptions.onlySet, "Only what is stored");
        m_list->add_flag("--unset", m_listOptions.onlyUnset, "Only what is not stored")->excludes(onlySet);
        m_list->add_option("--store", m_listOptions.store, "Only one store")->type_name("STORE")->check(oneOf({"product", "common"}));

        for (CLI::App* verb : {m_get, m_set, m_unset, m_explain})
            verb->add_option("KEY", m_key, "The preference")->transform(unmarked())->required();
        CLI::Option* const words = m_set->add_option("VALUE", m_words,
                                                     "A bool as true or false, an int in decimal, text in UTF-8, bytes in base64 or as "
                                                     "@FILE, a list as one word for each element");
        words->transform(unmarked());
        std::string const stores = "Stores an empty list";
        CLI::Option* const empty = m_set->add_flag("--empty", stores)->excludes(words);
        CLI::Option* const file = m_set->add_option("--from-file", m_file,
                                                    "Stores what the file holds, or standard input where it is -: byte for byte, but for "
                                                    "a list one element on each line");
        file->transform(unmarked())->check(aFile())->type_name("FILE")->excludes(words)->excludes(empty);
        m_set->callback([words, empty, file] {
            if (words->empty() && empty->empty() && file->empty())
                throw CLI::RequiredError("VALUE");
        });
    }

    void addLocationVerbs()
    {
        m_paths->add_option("NAME", m_pathsOptions.name, "One location, or those that match, such as 'stock*'")->transform(unmarked());
        m_paths->add_option("ARGUMENT", m_pathsOptions.argument, "What the location is asked about, where it takes that")
            ->transform(unmarked());
        CLI::Option* const explained = m_paths->add_flag_callback(
            "--explain", [this] { m_pathsOptions.view = PathsView::explain; }, "What decides where a location lies");
        m_paths
            ->add_flag_callback(
                "--check", [this] { m_pathsOptions.view = PathsView::check; },
                "Whether they exist and can be used; exit status 1 where the editor cannot write to one that it writes to")
            ->excludes(explained);

        m_nextName->require_subcommand(1);
        m_nextName->add_flag("--reserve", m_nextNameOptions.reserve,
                             "Makes the file, empty, so that nobody else gets the name; the folder too, and a free number where needed");
        for (CLI::App* kind : {m_nextFreeze, m_nextStabilized})
            kind->add_option("SOURCE", m_nextNameOptions.source, "The file that it is made of; only its name counts")
                ->transform(unmarked())
                ->required();
        m_nextStabilized->add_option("FORMAT", m_nextNameOptions.format, "The extension, such as mp4")->transform(unmarked())->required();
    }

    void addShortVerbs()
    {
        for (ShortVerb* verb : {&m_favorites, &m_indication})
            verb->verb->add_option("NAME", m_member, "The name that the editor keeps it under")->transform(unmarked())->required();
        m_indication.takeValue("VALUE", "Stores these bytes: in base64, or @FILE", false);
        m_tutorials.takeValue("VALUE", "Stores this list, one word for each element", true);
        m_colors.takeValue("VALUE", "Stores this list, one word for each element", true);
        m_targetHistory.takeValue("VALUE", "Stores this text", false);
    }

    void addUpkeepVerbs()
    {
        m_backup->add_option("FILE", m_file, "The new file")->transform(unmarked())->check(aFile())->required();
        m_restore->add_option("FILE", m_file, "A file that backup has written")->transform(unmarked())->check(aFile())->required();
        m_restore->add_flag("--dry-run", m_isDryRun, "Only tells what would change");
    }

    // A page tells of every machine, so it goes with nothing that asks about this one.
    void addPages()
    {
        for (CLI::App* verb : {m_list, m_paths}) {
            CLI::Option* const page =
                verb->add_option("--format", m_page, "markdown: the page of the reference, the same on every machine");
            page->type_name("FORMAT")->check(oneOf({"markdown"}));
            for (CLI::Option* other :
                 verb->get_options([=](CLI::Option* option) { return option != page && option != verb->get_help_ptr(); }))
                page->excludes(other);
        }
    }

    // What completes the words of the command line. The names of locations need no binding.
    std::map<CLI::Option const*, Choice> choices() const
    {
        Choice keys;
        for (Catalogue::Preference const& row : Catalogue::preferences())
            keys.words.push_back(row.name);
        std::sort(keys.words.begin(), keys.words.end());
        std::map<CLI::Option const*, Choice> result = {
            {m_app.get_option("--product"), {Choice::Kind::files}},
            {m_app.get_option("--home"), {Choice::Kind::folders}},
            {m_app.get_option("--color"), {Choice::Kind::words, {"auto", "always", "never"}}},
            {m_list->get_option("PATTERN"), keys},
            {m_set->get_option("--from-file"), {Choice::Kind::files}},
            {m_list->get_option("--store"), {Choice::Kind::words, {"product", "common"}}},
            {m_list->get_option("--format"), {Choice::Kind::words, {"markdown"}}},
            {m_paths->get_option("--format"), {Choice::Kind::words, {"markdown"}}},
            {m_paths->get_option("NAME"), {Choice::Kind::words, locationNames()}},
            {m_backup->get_option("FILE"), {Choice::Kind::files}},
            {m_restore->get_option("FILE"), {Choice::Kind::files}},
            {m_completion->get_option("SHELL"), {Choice::Kind::words, {"bash", "zsh", "fish"}}},
        };
        for (CLI::App const* verb : {m_get, m_set, m_unset, m_explain})
            result[verb->get_option("KEY")] = keys;
        for (CLI::App const* kind : {m_nextFreeze, m_nextStabilized})
            result[kind->get_option("SOURCE")] = {Choice::Kind::files};
        m_transfer.addChoices(result);
        return result;
    }

    bool isToStore() const
    {
        return *m_set || m_indication.isToStore() || m_tutorials.isToStore() || m_colors.isToStore() || m_targetHistory.isToStore();
    }

    Host::StorePolicy policy() const
    {
        if (isToStore())
            return Host::StorePolicy::create;
        return *m_restore || *m_monitor ? Host::StorePolicy::leaveOutUnusable : Host::StorePolicy::leaveOutMissing;
    }

    bool isLong() const { return *m_list || *m_paths || *m_doctor || m_transfer.isDiff(); }

    // A store that is made below a folder which only looks like the user's would be lost to the editor.
    void lookForTheHome() const
    {
        std::string const trouble = troubleWithTheHome();
        bool const isMade = isToStore() || m_transfer.isToStore() || (*m_restore && !m_isDryRun);
        bool const isWhereStoresLie = m_home.empty() && isEmpty("XDG_DATA_HOME");
        if (isMade && isWhereStoresLie && !trouble.empty())
            throw UserError(absl::StrCat(trouble, "; set HOME to your folder, or name one for the stores with --home"));
        bool const isToldAnyway = *m_paths && m_pathsOptions.view == PathsView::explain;
        if (!isMade && !isToldAnyway && isEmpty("HOME"))
            printError(absl::StrCat(trouble, "; set HOME to your folder"));
    }

    static bool isEmpty(char const* variable)
    {
        char const* const value = std::getenv(variable);
        return !value || *value == '\0';
    }

    // A change that fails tells it by itself.
    void noteStoresThatTakeNoChange(Host::Application const& application) const
    {
        if (isToStore() || m_transfer.isToStore())
            return;
        for (Catalogue::Store const store : {Catalogue::Store::product, Catalogue::Store::common})
            if (Storage::SqliteStorage const* const opened = storage(application, store); opened && opened->isReadOnly())
                printError(absl::StrCat("only for reading: ", opened->readOnlyReason()));
    }

    void answer(Host::Application const& application)
    {
        if (*m_list)
            listPreferences(application, m_listOptions, m_listFormat);
        if (*m_get)
            getPreference(application, m_key, m_getFormat);
        if (*m_set && m_file.empty())
            setPreference(application, m_key, m_words);
        if (*m_set && !m_file.empty())
            setPreferenceFromFile(application, m_key, m_file);
        if (*m_unset)
            unsetPreference(application, m_key);
        if (*m_explain)
            explainPreference(application, m_key, m_explainFormat);
        if (*m_paths)
            showPaths(application, m_pathsOptions, m_pathsFormat);
        if (*m_nextName) {
            m_nextNameOptions.file = *m_nextAudio ? NewFile::audio : *m_nextFreeze ? NewFile::freeze : NewFile::stabilized;
            showNextName(m_nextNameOptions, m_nextNameFormat);
        }
        if (*m_project)
            showProject(m_projectFormat);
        if (*m_favorites.verb)
            m_favorites.run(application, keyInFamily(Catalogue::familyOf("favoriteItems"), m_member));
        if (*m_indication.verb)
            m_indication.run(application, keyInFamily(Catalogue::familyOf("indicationObject"), m_member));
        if (*m_tutorials.verb)
            m_tutorials.run(application, "achievedTutorials");
        if (*m_colors.verb)
            m_colors.run(application, "userCustomColors");
        if (*m_targetHistory.verb)
            m_targetHistory.run(application, "targetHistory");
        if (*m_backup)
            backUpStores(application, m_file);
        if (*m_restore)
            restoreStores(application, m_file, m_isDryRun, m_restoreFormat);
        if (*m_monitor)
            monitorStores(application, m_monitorFormat);
    }

    CLI::App m_app{"Reads, changes and explains the preferences, folders and file names of Lumora Video Editor.", "editor-settings"};
    std::string m_productFile;
    std::string m_home;
    std::string m_color = "auto";
    bool m_withoutPager = false;
    bool m_hasOpened = false;

    CLI::App* m_list = m_app.add_subcommand("list", "All preferences with their values, sorted by key");
    CLI::App* m_get = m_app.add_subcommand("get", "The value that the editor reads now");
    CLI::App* m_set = m_app.add_subcommand("set", "Stores a value");
    CLI::App* m_unset = m_app.add_subcommand("unset", "Removes the stored value, so that the default holds again");
    CLI::App* m_explain = m_app.add_subcommand("explain", "Where a value comes from: what is stored, since when, and the default");
    CLI::App* m_paths = m_app.add_subcommand("paths", "Where the editor's files and folders lie");
    CLI::App* m_nextName = m_app.add_subcommand("next-name", "The name that the editor gives the next file of a kind");
    CLI::App* m_nextAudio = m_nextName->add_subcommand("audio", "An audio recording");
    CLI::App* m_nextFreeze = m_nextName->add_subcommand("freeze", "A freeze frame");
    CLI::App* m_nextStabilized = m_nextName->add_subcommand("stabilized", "A stabilized clip");
    CLI::App* m_project = m_app.add_subcommand("project", "Default name, extensions and filters of projects, and the sample project");
    ShortVerb m_favorites{m_app, "favorites", "The favourites of one list"};
    ShortVerb m_indication{m_app, "indication", "What the editor keeps for an indication, or stores it", asJsonWithBytes};
    ShortVerb m_tutorials{m_app, "tutorials", "The finished tutorials, or stores them"};
    ShortVerb m_colors{m_app, "colors", "The user's own colours, or stores them"};
    ShortVerb m_targetHistory{m_app, "target-history", "The recent export targets, or stores them"};
    CLI::App* m_backup = m_app.add_subcommand("backup", "Copies both stores into one file, also while the editor runs");
    CLI::App* m_restore = m_app.add_subcommand("restore", "Brings the stores of a backup back, and keeps what was there");
    CLI::App* m_monitor = m_app.add_subcommand("monitor", "Prints the changes that other processes make, as they happen");
    CLI::App* m_doctor =
        m_app.add_subcommand("doctor", "What is wrong with the stores, what they hold and the folders; exit status 1 where something is");
    TransferVerbs m_transfer{m_app};
    CLI::App* m_completion = m_app.add_subcommand("completion", "A completion script for a shell, to be sourced");
    CLI::App* m_manual = m_app.add_subcommand("manual", "The manual page, for man");
    FormatOptions m_listFormat{m_list, asJsonWithBytes};
    FormatOptions m_getFormat{m_get, asJsonWithBytes};
    FormatOptions m_explainFormat{m_explain, asJsonWithBytes};
    FormatOptions m_pathsFormat{m_paths, asJson};
    FormatOptions m_nextNameFormat{m_nextName, asJson};
    FormatOptions m_projectFormat{m_project, asJson};
    FormatOptions m_restoreFormat{m_restore, asJsonWithBytes};
    FormatOptions m_monitorFormat{m_monitor, "One JSON object a line; bytes in base64"};
    FormatOptions m_doctorFormat{m_doctor, asJson};
    std::string m_page;
    ListOptions m_listOptions;
    PathsOptions m_pathsOptions;
    NextNameOptions m_nextNameOptions;
    std::string m_file;
    bool m_isDryRun = false;
    std::string m_key;
    std::string m_member;
    std::string m_shell;
    std::vector<std::string> m_words;
};

} // namespace

// NOLINTNEXTLINE(bugprone-exception-escape): what is thrown outside the block is that memory is short, which ends the process
int main(int argc, char** argv)
{
    holdStandardStreams();
    StandardOutput output;
    CommandLine commandLine;
    int status = 0;
    try {
        status = commandLine.run(argc, argv);
    } catch (std::exception const& error) {
        printError(error.what());
        std::cerr << commandLine.adviceOn(error);
        status = commandLine.statusOfTrouble();
    }
    if (std::string const trouble = output.trouble(); !trouble.empty()) {
        printError(absl::StrCat("cannot write to standard output: ", trouble));
        return std::max(status, commandLine.statusOfTrouble());
    }
    return status;
}
