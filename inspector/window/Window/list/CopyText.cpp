// SPDX-License-Identifier: MIT
#include <Window/list/CopyText.h>

#include <Inspector/Commands.h>

#include <Inspection/ValueFormat.h>

#include <nlohmann/json.hpp>

namespace Inspector {

namespace {

bool isHidden(Setting const& setting, std::string const& revealed) { return setting.isHidden && setting.id != revealed; }

QString valueOf(Setting const& setting, std::string const& revealed)
{
    return isHidden(setting, revealed) ? QString::fromUtf8(hiddenText) : setting.shownValue;
}

nlohmann::ordered_json jsonOf(Setting const& setting, std::string const& revealed)
{
    nlohmann::ordered_json json = {{"key", setting.key}};
    if (!isHidden(setting, revealed))
        json["value"] = Inspection::toJson(setting.value);
    return json;
}

QString json(Lines<Setting> const& settings, std::string const& revealed)
{
    auto all = nlohmann::ordered_json::array();
    for (auto const& setting : settings)
        all.push_back(jsonOf(*setting, revealed));
    return QString::fromStdString(Inspection::jsonText(all.size() == 1 ? all.front() : all, 2));
}

std::optional<QString> commandFor(Setting const& setting, std::string const& revealed, Place const& place)
{
    if (setting.rows.empty())
        return commandToUnset(place, {setting.key});
    if (isHidden(setting, revealed))
        return commandToSetHidden(place, setting.key);
    return commandToSet(place, setting.key, setting.value);
}

std::optional<QString> commands(Lines<Setting> const& settings, std::string const& revealed, Place const& place)
{
    QStringList lines;
    for (auto const& setting : settings) {
        std::optional<QString> const line = commandFor(*setting, revealed, place);
        if (!line)
            return std::nullopt;
        lines += *line;
    }
    return lines.join(QLatin1Char('\n'));
}

} // namespace

std::optional<QString> copyText(Lines<Setting> const& settings, CopyForm form, std::string const& revealed, Place const& place)
{
    if (form == CopyForm::json)
        return json(settings, revealed);
    if (form == CopyForm::command)
        return commands(settings, revealed, place);
    QStringList lines;
    for (auto const& setting : settings) {
        QString const& key = setting->cells[Setting::keyColumn];
        QString const value = valueOf(*setting, revealed);
        lines += form == CopyForm::key ? key : form == CopyForm::value ? value : key + QLatin1Char('\t') + value;
    }
    return lines.join(QLatin1Char('\n'));
}

} // namespace Inspector
