// SPDX-License-Identifier: MIT
#include "commands/Commands.h"
#include "commands/values/Output.h"
#include "terminal/Escaping.h"
#include "terminal/Table.h"
#include <Inspection/ValueFormat.h>

#include <absl/strings/str_cat.h>
#include <nlohmann/json.hpp>

#include <memory>

using Inspection::toJson;
using nlohmann::ordered_json;

namespace {

void showProject(Format format)
{
    QStringList const extensions = Settings::supportedProjectFileExtensions();
    QString const sample = Settings::sampleProjectPath();
    if (format == Format::json) {
        printJson({{"defaultName", Settings::projectNameDefault().toStdString()},
                   {"extensions", toJson(extensions)},
                   {"extensionForSaving", Settings::projectFileExtension().toStdString()},
                   {"saveFilter", Settings::projectFileSaveFilter().toStdString()},
                   {"openFilter", Settings::projectFileOpenFilter().toStdString()},
                   {"sampleProject", sample.isNull() ? ordered_json() : ordered_json(sample.toStdString())}});
        return;
    }
    printTable({{"default name", onOneLine(Settings::projectNameDefault())},
                {"extensions", inColumn(extensions, format)},
                {"extension for saving", onOneLine(Settings::projectFileExtension())},
                {"save filter", onOneLine(Settings::projectFileSaveFilter())},
                {"open filter", onOneLine(Settings::projectFileOpenFilter())},
                {"sample project", onOneLine(sample)}},
               {}, format);
    if (sample.isNull() && format == Format::people)
        printError(absl::StrCat("there is no sample project below ", stockSampleProjectsPath().toStdString()));
}

} // namespace

std::vector<Command> commandsOfProject()
{
    auto const format = std::make_shared<FormatChoice>();
    Command command;
    command.name = "project";
    command.group = Group::look;
    command.summary = "Default name, extensions and filters of projects; the sample";
    command.options = withFormat(*format, jsonHelp);
    command.examples = {{"editor-settings project", "What a new project is called, and which files the editor opens."}};
    command.stores = always(StoreUse::read);
    command.run = [format](Invocation const&) {
        showProject(*format);
        return 0;
    };
    return {command};
}
