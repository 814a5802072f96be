// SPDX-License-Identifier: MIT
#include "cli/VerbOptions.h"

#include "cli/Arguments.h"
#include "commands/Preferences.h"

char const* const asJson = "As JSON";
char const* const asJsonWithBytes = "As JSON; bytes in base64";

FormatOptions::FormatOptions(CLI::App* verb, char const* json)
{
    CLI::Option* const plain = verb->add_flag("--plain", m_plain, "Tab-separated, one record a line, nothing shortened; for scripts");
    verb->add_flag("--json", m_json, json)->excludes(plain);
}

ShortVerb::ShortVerb(CLI::App& app, char const* name, std::string const& description, char const* json)
    : verb(app.add_subcommand(name, description)), format(verb, json)
{}

void ShortVerb::takeValue(char const* name, std::string const& description, bool isList)
{
    CLI::Option* const value = verb->add_option(name, words, description)->transform(unmarked());
    if (isList)
        verb->add_flag("--empty", empty, "Stores an empty list")->excludes(value);
    else
        value->expected(1);
}

void ShortVerb::run(Host::Application const& application, std::string const& key) const
{
    if (isToStore())
        setPreference(application, key, words);
    else
        getPreference(application, key, format);
}

TransferVerbs::TransferVerbs(CLI::App& app)
    : exporting(
          app.add_subcommand("export", "Writes what is stored to a new file, in JSON: for another machine, or for somebody who helps")),
      importing(app.add_subcommand("import", "Stores what an exported file holds, all of it or nothing; what it does not name stays")),
      comparing(app.add_subcommand("diff", "The differences between what is stored and what an exported file holds")),
      importFormat(importing, "With --dry-run: as JSON; bytes in base64"),
      diffFormat(comparing, asJsonWithBytes)
{
    for (CLI::App* verb : {exporting, importing, comparing}) {
        CLI::Option* const file = verb->add_option(
            "FILE", options.file, verb == exporting ? "The new file; - for standard output" : "The file; - for standard input");
        file->transform(unmarked())->check(aFile())->required();
        verb->add_option("--only", options.only, "Only keys of this class; may be given several times")
            ->allow_extra_args(false)
            ->type_name("CLASS")
            ->check(oneOf(classes));
    }
    exporting->add_flag("--redact", options.redact,
                        "Leaves out personal values, those of unknown keys, and whatever holds the path of the home folder");
    importing->add_flag("--with-unknown", options.withUnknown, "Takes keys that the editor does not know as they are");
    importing->add_flag("--dry-run", options.dryRun, "Tells what would change, as diff does, and changes nothing");
    importing->callback([this] {
        if (importFormat != Format::people && !options.dryRun)
            throw CLI::RequiredError("--dry-run");
    });
}

bool TransferVerbs::run(Host::Application const& application) const
{
    if (*exporting)
        exportSettings(application, options);
    if (*importing)
        importSettings(application, options, importFormat);
    return isDiff() && showDifferences(application, options, diffFormat);
}

void TransferVerbs::addChoices(std::map<CLI::Option const*, Choice>& choices) const
{
    for (CLI::App const* verb : {exporting, importing, comparing}) {
        choices[verb->get_option("FILE")] = {Choice::Kind::files};
        choices[verb->get_option("--only")] = {Choice::Kind::words, classes};
    }
}
