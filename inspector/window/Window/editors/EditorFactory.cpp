// SPDX-License-Identifier: MIT
#include <Window/editors/EditorFactory.h>

#include <Window/editors/BytesEditor.h>
#include <Window/editors/FlagEditor.h>
#include <Window/editors/FolderEditor.h>
#include <Window/editors/FractionEditor.h>
#include <Window/editors/LineEditor.h>
#include <Window/editors/ListEditor.h>
#include <Window/editors/WordsEditor.h>

#include <Inspection/ValueFormat.h>

namespace Inspector {

namespace {

// Of characters. A field of more would hold up the window.
constexpr int mostTyped = 0x10000;

struct EditorOf {
    Setting const& setting;
    QWidget* parent;

    ValueEditor* operator()(bool) const { return new FlagEditor(setting, parent); }
    ValueEditor* operator()(int) const { return new LineEditor(setting, parent); }
    ValueEditor* operator()(std::string const& text) const { return (*this)(QString::fromStdString(text)); }
    ValueEditor* operator()(QByteArray const&) const { return new BytesEditor(setting.cells[Setting::keyColumn], true, parent); }
    ValueEditor* operator()(QStringList const&) const { return new ListEditor(setting, parent); }
    ValueEditor* operator()(boost::rational<long long> const&) const { return new FractionEditor(setting, parent); }

    ValueEditor* operator()(QString const& text) const
    {
        if (setting.usable.isFolder)
            return new FolderEditor(setting, parent);
        if (!setting.usable.words.empty())
            return new WordsEditor(setting, parent);
        if (text.contains(QLatin1Char('\n')))
            return new LinesEditor(setting, parent);
        return new LineEditor(setting, parent);
    }
};

bool isTooLong(Setting const& setting)
{
    return !std::holds_alternative<QByteArray>(setting.value) && Inspection::text(setting.value).size() > mostTyped;
}

} // namespace

ValueEditor* newEditor(Setting const& setting, QWidget* parent)
{
    bool const isText = !std::holds_alternative<QByteArray>(setting.value);
    if (isTooLong(setting) || (isText && bytesToShow(setting)))
        return nullptr;
    QStringList const words = openingWords(setting);
    std::unique_ptr<ValueEditor> editor(std::visit(EditorOf{setting, parent}, setting.value));
    editor->setWords(words);
    return editor->words() == words ? editor.release() : nullptr;
}

std::optional<QByteArray> bytesToShow(Setting const& setting)
{
    bool const isOther = setting.state == Inspection::State::otherKind;
    for (Storage::SqliteStorage::Row const& row : isOther ? std::vector<Storage::SqliteStorage::Row>() : setting.rows)
        if (auto const* const text = std::get_if<std::string>(&row.value); text && !Inspection::isUtf8(*text))
            return QByteArray::fromStdString(*text);
    auto const* const bytes = std::get_if<QByteArray>(&setting.value);
    return bytes ? std::optional(*bytes) : std::nullopt;
}

} // namespace Inspector
