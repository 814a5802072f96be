// SPDX-License-Identifier: MIT
#include "cli/CommandLine.h"

#include "cli/Arguments.h"
#include "cli/Completion.h"
#include "cli/HelpTexts.h"
#include "cli/ManualPage.h"
#include "cli/UsageErrors.h"
#include "commands/Commands.h"
#include "terminal/Escaping.h"
#include "terminal/Pager.h"
#include "terminal/ProgressLine.h"
#include "terminal/Streams.h"
#include "terminal/Terminal.h"

#include <Host/Home.h>
#include <Inspection/DeclaredKeys.h>
#include <Inspection/PreferenceState.h>
#include <Inspection/RowDifference.h>
#include <Inspection/checks/FolderChecks.h>
#include <Inspection/studio/StudioServer.h>
#include <Settings/Version.h>

#include <CLI/CLI.hpp>
#include <absl/strings/str_cat.h>

#include <algorithm>
#include <cstdlib>
#include <iostream>
#include <map>
#include <optional>

namespace {

constexpr int wrongUsage = 2;

// --- From commands to the parser ---

CLI::Option* added(CLI::App& app, Option const& option)
{
    if (bool* const* const flag = std::get_if<bool*>(&option.target))
        return app.add_flag(option.name, **flag, option.help);
    std::string* const* const text = std::get_if<std::string*>(&option.target);
    CLI::Option* const result = text ? app.add_option(option.name, **text, option.help)
                                     : app.add_option(option.name, *std::get<std::vector<std::string>*>(option.target), option.help);
    result->transform(unmarked())->required(option.isRequired);
    if (!option.isPositional())
        result->allow_extra_args(false)->type_name(option.valueName);
    if (option.isSingle)
        result->expected(1);
    if (!option.accepted.empty())
        result->check(oneOf(option.accepted));
    if (!option.refusalOfEmpty.empty())
        result->check(notEmpty(option.refusalOfEmpty));
    if (!option.variable.empty())
        result->envname(option.variable);
    return result;
}

void addOptions(CLI::App& app, std::vector<Option> const& options)
{
    for (Option const& option : options)
        added(app, option);
    for (Option const& option : options)
        for (std::string const& other : option.excluded)
            app.get_option(option.name)->excludes(app.get_option(other));
}

void addCommand(CLI::App& above, Command const& command, std::map<CLI::App const*, Command const*>& known)
{
    CLI::App* const verb = above.add_subcommand(command.name, command.summary);
    known[verb] = &command;
    verb->fallthrough(); // what stands for all verbs may stand behind each
    addOptions(*verb, command.options);
    for (Command const& below : command.verbs)
        addCommand(*verb, below, known);
    if (!command.verbs.empty())
        verb->require_subcommand(1);
    if (command.wrongWords)
        verb->callback([&command] {
            if (std::string const trouble = command.wrongWords(); !trouble.empty())
                throw CLI::ValidationError(trouble);
        });
}

// --- Running a verb ---

Host::StorePolicy policyFor(StoreUse use)
{
    switch (use) {
    case StoreUse::change:
        return Host::StorePolicy::create;
    case StoreUse::readUsable:
    case StoreUse::replace:
        return Host::StorePolicy::leaveOutUnusable;
    case StoreUse::none:
    case StoreUse::read:
    case StoreUse::readQuietly:
    case StoreUse::merge:
        break;
    }
    return Host::StorePolicy::leaveOutMissing;
}

bool changesStores(StoreUse use) { return use == StoreUse::change || use == StoreUse::merge || use == StoreUse::replace; }

bool isEmpty(char const* variable)
{
    char const* const value = std::getenv(variable);
    return !value || *value == '\0';
}

// A store created below a folder that only looks like the user's would be lost to the editor.
void checkHome(StoreUse use, bool storesLieInHome)
{
    Inspection::Findings const findings = Inspection::checkHome();
    if (findings.empty())
        return;
    if (changesStores(use) && storesLieInHome)
        throw UserError(absl::StrCat(findings.front().what, "; set HOME to your folder, or name one for the stores with --home"));
    if (!changesStores(use) && use != StoreUse::readQuietly && isEmpty("HOME"))
        printError(absl::StrCat(findings.front().what, "; set HOME to your folder"));
}

void printReadOnlyStores(Host::Application const& application)
{
    for (Catalogue::Store const store : Catalogue::bothStores)
        if (Storage::SqliteStorage const* const opened = Inspection::storage(application, store))
            if (std::optional<Storage::StorageError> const error = opened->readOnlyError())
                printError(absl::StrCat("only for reading: ", error->what()));
}

// Null where the product belongs to no studio; for a verb that only looks also without the module that talks to the server.
std::unique_ptr<Inspection::StudioServer> studioOf(Host::ProductFile const& product, StudioUse use)
try {
    bool const isShared = use != StudioUse::none && !product.studio().empty();
    return isShared ? Inspection::openStudioServer(product.studio()) : nullptr;
} catch (std::runtime_error const& error) {
    if (use == StudioUse::change)
        throw;
    printError(absl::StrCat(error.what(), "; what follows is what this workstation has"));
    return nullptr;
}

void printUnreachable(Inspection::StudioServer const& studio)
{
    if (std::string const trouble = troubleOf(studio.status()); !trouble.empty())
        printError(trouble);
}

// CLI11 lists what it did not expect from the last word to the first.
std::string sentence(CLI::App const& app, CLI::Error const& error)
{
    std::vector<std::string> const unexpected = app.remaining(true);
    if (error.get_exit_code() != static_cast<int>(CLI::ExitCodes::ExtrasError) || unexpected.size() < 2)
        return error.what();
    return absl::StrCat("The following arguments were not expected: ", joined(unexpected, " "));
}

class CommandLine {
public:
    explicit CommandLine(std::vector<std::string> const& words)
    {
        m_commands.push_back(completionCommand());
        m_commands.push_back(manualCommand());
        m_commands.push_back(helpCommand());
        m_app.set_version_flag("--version", EDITOR_SETTINGS_VERSION_STRING, "Display program version information and exit");
        m_app.formatter_fn([this](CLI::App const* app, std::string const& path, CLI::AppFormatMode) {
            auto const found = m_known.find(app);
            return found == m_known.end() ? programHelp(m_app.get_description(), m_global.options(), m_commands)
                                          : verbHelp(path, *found->second);
        });
        m_app.require_subcommand(0, 1);
        m_app.failure_message([this](CLI::App const* app, CLI::Error const& error) {
            return absl::StrCat("editor-settings: ", shortened(withoutControls(unmarked(sentence(*app, error))), 500), "\n",
                                adviceOnUsage(*app, m_global.options(), m_commands));
        });
        addOptions(m_app, m_global.options());
        m_words = verbFirst(words, m_global.options(), m_commands);
        for (Command const& command : m_commands)
            if (isTyped(command.name))
                addCommand(m_app, command, m_known);
        if (isTyped("complete")) { // not in the help: it is for shells
            m_completing = m_app.add_subcommand("complete");
            m_completing->add_option("WORDS", m_typed)->transform(unmarked());
        }
    }

    int run()
    {
        try {
            m_app.parse(markedArguments(m_words));
            if (m_app.get_subcommands().empty())
                throw CLI::RequiredError("A verb");
        } catch (CLI::ParseError const& error) {
            return m_app.exit(error) == 0 ? 0 : wrongUsage;
        }
        if (m_completing && *m_completing)
            return printCandidates(m_global.options(), m_commands, m_typed), 0;
        CLI::App const* parsed = &m_app;
        while (!parsed->get_subcommands().empty())
            parsed = parsed->get_subcommands().front();
        m_errorStatus = m_known.at(parsed)->errorStatus;
        if (!m_ignoredDataFolder.empty() && m_known.at(parsed)->needsProduct)
            printError(absl::StrCat("XDG_DATA_HOME is ", quoted(m_ignoredDataFolder), ", which is not absolute, so it counts as not set"));
        return run(*m_known.at(parsed));
    }

    /// The exit status of an error, which the verb decides.
    int errorStatus() const { return m_errorStatus; }

private:
    // A verb that is no word of the command line cannot be meant, and its parser is not built.
    bool isTyped(std::string const& verb) const { return std::find(m_words.begin(), m_words.end(), verb) != m_words.end(); }

    int run(Command const& command)
    {
        bool hasOpened = false;
        try {
            return run(command, hasOpened);
        } catch (Host::ProductFileError const& error) {
            printError(error.what());
            std::cerr << "Name a product file with '--product FILE', or in EDITOR_SETTINGS_PRODUCT.\n";
        } catch (Storage::StorageError const& error) {
            printError(error.what());
            bool const isOfServer =
                error.code() == Storage::StorageError::Code::unreachable || error.code() == Storage::StorageError::Code::locked;
            if (!isOfServer && (!hasOpened || !command.namesFile))
                std::cerr << "Run 'editor-settings doctor' with the same options to see what is wrong; 'editor-settings restore FILE' "
                             "brings a backup back.\n";
            if (error.code() == Storage::StorageError::Code::network)
                std::cerr << "Where no other machine uses the stores, '--allow-network' allows it.\n";
        } catch (std::exception const& error) {
            printError(error.what());
        }
        return command.errorStatus;
    }

    int run(Command const& command, bool& hasOpened)
    {
        static std::map<std::string, Terminal::Colors> const colors = {
            {"auto", Terminal::Colors::automatic}, {"always", Terminal::Colors::always}, {"never", Terminal::Colors::never}};
        Terminal::chooseColors(colors.at(m_global.color));
        std::optional<Pager> pager;
        if (command.isLong && !m_global.withoutPager && Pager::isOfUse())
            pager.emplace();
        Invocation invocation;
        if (!m_global.home.empty())
            invocation.storeFolder = m_global.home;
        invocation.options.allowNetworkFileSystem = m_global.allowsNetwork;
        StoreUse const use = command.stores();
        if (command.needsProduct)
            invocation.productFile =
                m_global.productFile.empty() ? Host::installedProductFile() : std::filesystem::path(m_global.productFile);
        if (use == StoreUse::none)
            return command.run(invocation);
        checkHome(use, m_global.home.empty() && isEmpty("XDG_DATA_HOME"));
        return runOnStores(command, use, invocation, hasOpened);
    }

    static int runOnStores(Command const& command, StoreUse use, Invocation& invocation, bool& hasOpened)
    {
        std::optional<ProgressLine> opening(1);
        opening->next("opening the stores");
        std::shared_ptr<Host::ProductFile> const product = Inspection::readProductFile(invocation.productFile);
        std::unique_ptr<Inspection::StudioServer> const studio = studioOf(*product, command.studio);
        Host::Application::Options options{invocation.storeFolder, policyFor(use), invocation.options};
        if (std::optional<Catalogue::Store> const only = command.onlyStore ? command.onlyStore() : std::nullopt)
            options.onlyStore = name(*only);
        if (studio)
            options.share = [&](auto const& name, auto const& local) { return studio->store(name, local); };
        Host::ToolApplication const application(product, options);
        opening.reset();
        hasOpened = true;
        if (studio && command.studio == StudioUse::look)
            printUnreachable(*studio);
        if (!changesStores(use))
            printReadOnlyStores(application);
        invocation.application = &application;
        invocation.studio = studio.get();
        return command.run(invocation);
    }

    Command completionCommand()
    {
        Command command;
        command.name = "completion";
        command.group = Group::support;
        command.summary = "A completion script for a shell, to be sourced";
        command.options = {Option("SHELL", &m_shell, "bash, zsh or fish").required().oneOf({"bash", "zsh", "fish"})};
        command.examples = {{"editor-settings completion bash > editor-settings.bash", "A script for bash: source editor-settings.bash"}};
        command.stores = always(StoreUse::none);
        command.needsProduct = false;
        command.run = [this](Invocation const&) { return printCompletionScript(m_shell), 0; };
        return command;
    }

    Command manualCommand()
    {
        Command command;
        command.name = "manual";
        command.group = Group::support;
        command.summary = "The manual page, for man";
        command.examples = {{"editor-settings manual > editor-settings.1", "The page in a file: man ./editor-settings.1"}};
        command.stores = always(StoreUse::none);
        command.needsProduct = false;
        command.run = [this](Invocation const&) {
            std::cout << manualPage(m_app.get_description(), m_global.options(), m_commands);
            return 0;
        };
        return command;
    }

    Command helpCommand()
    {
        std::vector<std::string> names = {"help"};
        for (Command const& command : m_commands)
            names.push_back(command.name);
        Command command;
        command.name = "help";
        command.group = Group::support;
        command.summary = "This help, or that of a verb";
        command.options = {Option("VERB", &m_helpedVerb, "The verb").oneOf(names), Option("BELOW", &m_helpedBelow, "The verb below it")};
        command.examples = {{"editor-settings help set", "What 'editor-settings set --help' prints."},
                            {"editor-settings help studio set", "Likewise, for a verb below another."}};
        command.stores = always(StoreUse::none);
        command.needsProduct = false;
        command.wrongWords = [this] {
            bool const isWrong = !m_helpedBelow.empty() && !findVerb(findVerb(m_commands, m_helpedVerb)->verbs, m_helpedBelow);
            return isWrong ? absl::StrCat("BELOW: ", m_helpedBelow, " is no verb below ", m_helpedVerb) : std::string();
        };
        command.run = [this](Invocation const&) { return printHelp(), 0; };
        return command;
    }

    void printHelp()
    {
        if (m_helpedVerb.empty()) {
            std::cout << programHelp(m_app.get_description(), m_global.options(), m_commands);
            return;
        }
        Command const* verb = findVerb(m_commands, m_helpedVerb);
        std::string path = absl::StrCat(m_app.get_name(), " ", m_helpedVerb);
        if (!m_helpedBelow.empty()) {
            verb = findVerb(verb->verbs, m_helpedBelow);
            path += ' ' + m_helpedBelow;
        }
        std::cout << verbHelp(path, *verb);
    }

    CLI::App m_app{"Shows and changes preferences, folders and file names of Lumora Video Editor.", "editor-settings"};
    GlobalOptions m_global;
    std::vector<std::string> m_words; // as they are parsed
    std::vector<Command> m_commands = allCommands();
    std::map<CLI::App const*, Command const*> m_known;
    CLI::App* m_completing = nullptr;
    std::vector<std::string> m_typed;
    std::string m_shell;
    std::string m_helpedVerb;
    std::string m_helpedBelow;
    int m_errorStatus = 1;
    std::string const m_ignoredDataFolder = Host::ignoreRelativeDataFolder();
};

} // namespace

std::vector<Option> GlobalOptions::options()
{
    std::string const emptyName = "the name is empty; leave the option out for the default";
    return {Option("--color", &color, "Colours: auto, always or never; default: auto").of("WHEN").oneOf({"auto", "always", "never"}),
            Option("--no-pager", &withoutPager, "Long answers as they are"),
            Option("--product", &productFile, "The product file; default: the installed one")
                .of("FILE")
                .refusingEmpty(emptyName)
                .completedBy(Candidates::files)
                .fromEnvironment("EDITOR_SETTINGS_PRODUCT"),
            Option("--home", &home, "The folder of both stores, in place of their own")
                .of("DIR")
                .refusingEmpty(emptyName)
                .completedBy(Candidates::folders)
                .fromEnvironment("EDITOR_SETTINGS_HOME"),
            Option("--allow-network", &allowsNetwork, "Stores on a network too, where two machines can damage them")};
}

int runCommandLine(int argc, char** argv)
{
    CommandLine commandLine({argv + 1, argv + argc});
    int const status = commandLine.run();
    std::string const trouble = closeStandardOutput();
    if (trouble.empty())
        return status;
    printError(absl::StrCat("cannot write to standard output: ", trouble));
    return std::max(status, commandLine.errorStatus());
}
