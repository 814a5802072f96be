// SPDX-License-Identifier: MIT
//
// Each script walks the words before the cursor to find the verb and the number of positional words after it, written
// as "verb:number", and picks its candidates by that.
#include "cli/Completion.h"

#include "cli/CommandWalk.h"
#include "terminal/Escaping.h"

#include <algorithm>
#include <set>

namespace {

struct Candidate {
    std::string word;
    std::string description;
};

// What can stand at one place of the command line.
struct Point {
    std::string position; // "verb:number", or the option whose value is asked for
    std::vector<Candidate> candidates;
    Choice::Kind kind = Choice::Kind::words;
};

struct Completion {
    std::vector<std::string> verbs; // every "verb" and "verb subverb"
    std::set<std::string> valued;   // options that are followed by a value
    std::vector<Point> positionals;
    std::map<std::string, Point> values; // by option
    std::vector<Point> options;          // by verb, "" for those of all
};

Point pointOf(std::string const& position, Choice const& choice)
{
    Point point = {position, {}, choice.kind};
    for (std::string const& word : choice.words)
        point.candidates.push_back({word, ""});
    return point;
}

// The options that may stand behind a verb: its own, and those of the verb that it belongs to. What stands for all verbs
// is offered everywhere.
std::vector<CLI::Option const*> reachableOptions(CLI::App const& verb)
{
    std::vector<CLI::Option const*> options = optionsOf(verb, false);
    for (CLI::App const* above = verb.get_parent(); above && above->get_parent(); above = above->get_parent())
        for (CLI::Option const* option : optionsOf(*above, false))
            options.push_back(option);
    auto const isHelp = [](CLI::Option const* option) { return option->check_lname("help"); };
    if (verb.get_parent())
        options.erase(std::remove_if(options.begin(), options.end(), isHelp), options.end());
    return options;
}

void collect(CLI::App const& verb, std::string const& path, std::map<CLI::Option const*, Choice> const& choices, Completion& completion)
{
    if (!path.empty())
        completion.verbs.push_back(path);
    Point subverbs = {path + ":0", {}};
    for (CLI::App const* subverb : verbsOf(verb))
        subverbs.candidates.push_back({subverb->get_name(), subverb->get_description()});
    if (!subverbs.candidates.empty())
        completion.positionals.push_back(subverbs);
    int number = 0;
    for (CLI::Option const* positional : optionsOf(verb, true)) {
        auto const choice = choices.find(positional);
        if (choice != choices.end())
            completion.positionals.push_back(pointOf(path + ':' + std::to_string(number), choice->second));
        ++number;
    }
    Point options = {path, {}};
    for (CLI::Option const* option : reachableOptions(verb)) {
        auto const choice = choices.find(option);
        for (std::string const& form : formsOf(*option)) {
            options.candidates.push_back({form, option->get_description()});
            if (takesValue(*option))
                completion.valued.insert(form);
            if (choice != choices.end())
                completion.values.insert_or_assign(form, pointOf(form, choice->second));
        }
    }
    completion.options.push_back(options);
}

std::string inSingleQuotes(std::string const& text, char const* quoteWithin)
{
    std::string result = "'";
    for (char const character : text)
        result += character == '\'' ? quoteWithin : std::string(1, character);
    return result + '\'';
}

std::string wordsOf(Point const& point)
{
    std::vector<std::string> words;
    for (Candidate const& candidate : point.candidates)
        words.push_back(candidate.word);
    return joined(words, " ");
}

std::vector<Point> pointsOf(std::map<std::string, Point> const& byOption)
{
    std::vector<Point> points;
    for (auto const& [option, point] : byOption)
        points.push_back(point);
    return points;
}

// Bash and zsh share the walk; they differ in how words are counted and how candidates are handed over.
std::string casesOf(std::vector<Point> const& points, std::string (*action)(Point const&))
{
    std::string cases;
    for (Point const& point : points)
        cases += "        \"" + point.position + "\") " + action(point) + " ;;\n";
    return cases;
}

std::string alternatives(std::vector<std::string> const& words) { return '"' + joined(words, "\"|\"") + '"'; }

// Finds `verb`, `number` and, where the value of an option comes next, `option`. Bash takes "--option=value" for three
// words.
std::string walkOf(Completion const& completion)
{
    return "        if [[ -n $option ]]; then\n"
           "            [[ $word == '=' ]] || option=\n"
           "            continue\n"
           "        fi\n"
           "        case \"$word\" in\n"
           "        " +
           alternatives({completion.valued.begin(), completion.valued.end()}) +
           ") option=$word; continue ;;\n"
           "        -*) continue ;;\n"
           "        esac\n"
           "        case \"$verb${verb:+ }$word\" in\n"
           "        " +
           alternatives(completion.verbs) +
           ") verb=\"$verb${verb:+ }$word\"; number=0 ;;\n"
           "        *) number=$((number + 1)) ;;\n"
           "        esac\n";
}

std::string bashAction(Point const& point)
{
    switch (point.kind) {
    case Choice::Kind::files:
        return "compopt -o default";
    case Choice::Kind::folders:
        return "compopt -o dirnames";
    case Choice::Kind::words:
        break;
    }
    return "mapfile -t COMPREPLY < <(compgen -W '" + wordsOf(point) + "' -- \"$current\")";
}

std::string bashOptions(Point const& point) { return "options+=' " + wordsOf(point) + "'"; }

std::string bashScript(Completion const& completion)
{
    return "_editor_settings()\n"
           "{\n"
           "    local current=${COMP_WORDS[COMP_CWORD]} verb= number=0 option= options= word\n"
           "    COMPREPLY=()\n"
           "    for word in \"${COMP_WORDS[@]:1:COMP_CWORD-1}\"; do\n" +
           walkOf(completion) +
           "    done\n"
           "    if [[ -n $option ]]; then\n"
           "        [[ $current == '=' ]] && current=\n"
           "        case \"$option\" in\n" +
           casesOf(pointsOf(completion.values), bashAction) +
           "        esac\n"
           "    elif [[ $current == -* ]]; then\n"
           "        options='" +
           wordsOf(completion.options.front()) +
           "'\n"
           "        case \"$verb\" in\n" +
           casesOf({completion.options.begin() + 1, completion.options.end()}, bashOptions) +
           "        esac\n"
           "        mapfile -t COMPREPLY < <(compgen -W \"$options\" -- \"$current\")\n"
           "    else\n"
           "        case \"$verb:$number\" in\n" +
           casesOf(completion.positionals, bashAction) +
           "        esac\n"
           "    fi\n"
           "}\n"
           "complete -F _editor_settings editor-settings\n";
}

std::string zshCandidates(Point const& point)
{
    std::vector<std::string> candidates;
    for (Candidate const& candidate : point.candidates)
        candidates.push_back(inSingleQuotes(candidate.word + (candidate.description.empty() ? "" : ':' + candidate.description), "'\\''"));
    return joined(candidates, " ");
}

std::string zshAction(Point const& point)
{
    switch (point.kind) {
    case Choice::Kind::files:
        return "_files";
    case Choice::Kind::folders:
        return "_files -/";
    case Choice::Kind::words:
        break;
    }
    return "candidates=(" + zshCandidates(point) + "); _describe word candidates";
}

std::string zshOptions(Point const& point) { return "candidates+=(" + zshCandidates(point) + ")"; }

std::string zshScript(Completion const& completion)
{
    return "#compdef editor-settings\n"
           "_editor_settings()\n"
           "{\n"
           "    local current=${words[CURRENT]} verb= number=0 option= word\n"
           "    local -a candidates\n"
           "    for word in \"${(@)words[2,CURRENT-1]}\"; do\n" +
           walkOf(completion) +
           "    done\n"
           "    if [[ -z $option && $current == --*=* ]]; then\n"
           "        option=${current%%=*}\n"
           "        compset -P 1 '*='\n"
           "    fi\n"
           "    if [[ -n $option ]]; then\n"
           "        case \"$option\" in\n" +
           casesOf(pointsOf(completion.values), zshAction) +
           "        esac\n"
           "    elif [[ $current == -* ]]; then\n"
           "        candidates=(" +
           zshCandidates(completion.options.front()) +
           ")\n"
           "        case \"$verb\" in\n" +
           casesOf({completion.options.begin() + 1, completion.options.end()}, zshOptions) +
           "        esac\n"
           "        _describe option candidates\n"
           "    else\n"
           "        case \"$verb:$number\" in\n" +
           casesOf(completion.positionals, zshAction) +
           "        esac\n"
           "    fi\n"
           "}\n"
           // In a folder of completions the file is the body of a function of its name; sourced, it is made known.
           "if [[ ${funcstack[1]} == _editor-settings ]]; then _editor_settings \"$@\"; else compdef _editor_settings editor-settings; "
           "fi\n";
}

std::string inFish(std::string const& text) { return inSingleQuotes(text, "\\'"); }

std::string fishComplete(std::string const& condition, Candidate const& candidate)
{
    return "complete -c editor-settings -n " + inFish(condition) + " -a " + inFish(candidate.word) +
           (candidate.description.empty() ? "" : " -d " + inFish(candidate.description)) + '\n';
}

std::string fishPoint(std::string const& condition, Point const& point)
{
    if (point.kind == Choice::Kind::files)
        return "complete -c editor-settings -n " + inFish(condition) + " -F\n";
    std::string text;
    for (Candidate const& candidate : point.candidates)
        text += fishComplete(condition, candidate);
    return text;
}

// What tells fish that an option is followed by a value, and what completes that.
std::string fishValue(Point const& point)
{
    switch (point.kind) {
    case Choice::Kind::files:
        return " -r -F";
    case Choice::Kind::folders:
        return " -x -a '(__fish_complete_directories)'";
    case Choice::Kind::words:
        break;
    }
    return " -x -a " + inFish(wordsOf(point));
}

std::string fishOption(std::string const& condition, Candidate const& option, Completion const& completion)
{
    bool const isLong = option.word.compare(0, 2, "--") == 0;
    auto const value = completion.values.find(option.word);
    return "complete -c editor-settings -n " + inFish(condition) +
           (isLong ? " -l " + option.word.substr(2) : " -s " + option.word.substr(1)) +
           (value == completion.values.end() ? "" : fishValue(value->second)) + " -d " + inFish(option.description) + '\n';
}

std::string fishScript(Completion const& completion)
{
    std::string script = "function __editor_settings_position\n"
                         "    set -l verb ''\n"
                         "    set -l number 0\n"
                         "    set -l skip\n"
                         "    for word in (commandline -opc)[2..-1]\n"
                         "        if set -q skip[1]\n"
                         "            set skip\n"
                         "            continue\n"
                         "        end\n"
                         "        switch $word\n"
                         "            case " +
                         joined({completion.valued.begin(), completion.valued.end()}, " ") +
                         "\n"
                         "                set skip $word\n"
                         "                continue\n"
                         "            case '-*'\n"
                         "                continue\n"
                         "        end\n"
                         "        set -l longer (string trim -- \"$verb $word\")\n"
                         "        if contains -- $longer '" +
                         joined(completion.verbs, "' '") +
                         "'\n"
                         "            set verb $longer\n"
                         "            set number 0\n"
                         "        else\n"
                         "            set number (math $number + 1)\n"
                         "        end\n"
                         "    end\n"
                         "    echo $verb:$number\n"
                         "end\n"
                         "complete -c editor-settings -f\n";
    auto const at = [](std::string const& position) { return "test (__editor_settings_position) = \"" + position + '"'; };
    for (Point const& point : completion.positionals)
        script += fishPoint(at(point.position), point);
    for (Point const& point : completion.options) {
        std::string const verb =
            point.position.empty() ? "true" : "string match -q -- '" + point.position + ":*' (__editor_settings_position)";
        for (Candidate const& candidate : point.candidates)
            script += fishOption(verb, candidate, completion);
    }
    return script;
}

} // namespace

std::string completionScript(CLI::App const& app, std::map<CLI::Option const*, Choice> const& choices, std::string const& shell)
{
    Completion completion;
    walk(app, "", [&](CLI::App const& verb, std::string const& path) { collect(verb, path, choices, completion); });
    std::string const script = shell == "bash" ? bashScript(completion) : shell == "zsh" ? zshScript(completion) : fishScript(completion);
    std::string const origin = "# Made by 'editor-settings completion " + shell + "'.\n";
    // The first line tells zsh what the file is for.
    std::size_t const head = shell == "zsh" ? script.find('\n') + 1 : 0;
    return script.substr(0, head) + origin + script.substr(head);
}
