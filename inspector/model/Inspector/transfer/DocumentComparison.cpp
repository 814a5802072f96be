// SPDX-License-Identifier: MIT
#include <Inspector/transfer/DocumentComparison.h>

#include <Inspector/Search.h>

#include <Inspection/OneLine.h>
#include <Inspection/PreferenceState.h>
#include <Inspection/RowDifference.h>

#include <Host/FileContent.h>

#include <absl/strings/str_cat.h>
#include <absl/strings/str_join.h>

#include <algorithm>
#include <stdexcept>
#include <utility>

using Catalogue::Store;
using Inspection::onOneLine;
using Storage::SqliteStorage;

namespace Inspector {

namespace {

QString cell(std::string const& text) { return QString::fromStdString(text); }

void addTexts(DocumentLine& line)
{
    bool const isHidden = line.dataClass == Catalogue::dataClassName(Catalogue::DataClass::personal);
    std::string const there = line.there && isHidden ? hiddenText : onOneLine(line.there, "(unset)");
    std::string const wanted = line.isRedacted ? "redacted" : isHidden ? hiddenText : onOneLine(std::optional(line.wanted), "");
    line.cells = QStringList{cell(onOneLine(line.key)), cell(name(line.store)), cell(there), cell(wanted), cell(line.dataClass)};
    line.spoken = QStringList{line.cells[DocumentLine::keyColumn], QStringLiteral("stored ") + cell(there),
                              QStringLiteral("in the file ") + cell(wanted)}
                      .join(QStringLiteral(", "));
    line.searchText = Search::textOf(line.cells, {});
}

std::shared_ptr<DocumentLine const> lineOf(Store store, std::optional<SqliteStorage::Row> there, SqliteStorage::Row wanted, bool isRedacted)
{
    DocumentLine line;
    line.key = wanted.key;
    line.store = store;
    line.id = settingId(line.key, store);
    line.there = std::move(there);
    line.wanted = std::move(wanted);
    line.dataClass = Inspection::classOf(line.key);
    line.isRedacted = isRedacted;
    addTexts(line);
    return std::make_shared<DocumentLine const>(std::move(line));
}

// A comparison only counts them.
Lines<DocumentLine> redactedLines(Host::Application const& application, Inspection::Document const& document)
{
    Lines<DocumentLine> lines;
    for (Inspection::Entry const& entry : document.entries) {
        if (!entry.isRedacted())
            continue;
        SqliteStorage const* const opened = Inspection::storage(application, entry.store);
        lines.push_back(lineOf(entry.store, opened ? opened->find(entry.key) : std::nullopt,
                               {entry.key, Storage::storedWord(entry.kind), {}, {}}, true));
    }
    return lines;
}

} // namespace

DocumentComparison comparisonOf(Host::Application const& application, std::filesystem::path const& file, Inspection::Document document)
{
    Inspection::checkKeys(document, true);
    DocumentComparison result;
    result.file = file;
    result.made = document.made;
    result.product = document.product;
    result.lines = redactedLines(application, document);
    result.hasUnknown = std::any_of(document.entries.begin(), document.entries.end(),
                                    [](Inspection::Entry const& entry) { return Inspection::classOf(entry.key).empty(); });
    auto const take = [&](Inspection::Difference difference) {
        Storage::RowDifference& row = difference.row;
        if (row.after)
            result.lines.push_back(lineOf(difference.store, std::move(row.before), *std::move(row.after), false));
        else
            ++result.onlyHere;
    };
    Inspection::Comparison const comparison = Inspection::compared(application, {}, std::move(document), take);
    result.same = comparison.same;
    result.uncarried = comparison.uncarried;
    std::sort(result.lines.begin(), result.lines.end(), [](auto const& left, auto const& right) { return left->id < right->id; });
    return result;
}

namespace {

std::string brief(std::string const& name)
{
    QString const whole = cell(onOneLine(name));
    return (whole.size() <= 100 ? whole : whole.left(99) + QChar(0x2026)).toStdString();
}

std::string placeIn(Inspection::DocumentError const& error)
{
    if (error.line() > 0)
        return absl::StrCat("line ", error.line(), ", column ", error.column(), ":");
    if (error.place().empty())
        return "the document";
    return absl::StrJoin(error.place(), ".", [](std::string* text, std::string const& step) { *text += brief(step); });
}

} // namespace

std::string documentFault(std::filesystem::path const& file, Inspection::DocumentError const& error)
{
    return absl::StrCat("'", onOneLine(file.u8string()), "': ", placeIn(error), " ", error.fault(), "; ", error.remedy());
}

Inspection::Document documentIn(std::filesystem::path const& file)
{
    constexpr std::size_t most = std::size_t{64} * 1024 * 1024;
    std::string content;
    try {
        content = Host::boundedFileContent(file, most);
    } catch (std::runtime_error const& error) {
        throw std::runtime_error(absl::StrCat("cannot read '", onOneLine(file.u8string()), "' (", error.what(),
                                              "); name a file that 'editor-settings export' made"));
    }
    try {
        return Inspection::readDocument(content);
    } catch (Inspection::DocumentError const& error) {
        throw std::runtime_error(documentFault(file, error));
    }
}

// A step brings back what its rows held before.
Step stepOf(DocumentComparison const& document, std::set<std::string> const& taken)
{
    Step step;
    for (auto const& line : document.lines)
        if (!line->isRedacted && taken.count(line->id) > 0)
            step.push_back({line->store, {line->key, line->wanted, line->there}});
    return step;
}

} // namespace Inspector
