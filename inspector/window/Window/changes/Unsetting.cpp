// SPDX-License-Identifier: MIT
#include <Window/changes/Unsetting.h>

#include <Window/changes/Committer.h>
#include <Window/status/MessageBar.h>

#include <QCoreApplication>

namespace Inspector {

namespace {

constexpr int longestList = 10;

struct Words {
    Q_DECLARE_TR_FUNCTIONS(Inspector::Unsetting)
};

QString lineOf(Setting const& setting)
{
    return Words::tr("%1: %2, then %3")
        .arg(setting.cells[Setting::keyColumn], setting.cells[Setting::valueColumn], setting.cells[Setting::defaultColumn]);
}

QString question(QStringList lines)
{
    int const count = static_cast<int>(lines.size());
    if (int const more = count - longestList; more > 0)
        lines = lines.mid(0, longestList) << Words::tr("and %n more", nullptr, more);
    return Words::tr("Unset %n settings? They follow their defaults then.", nullptr, count) + QLatin1Char('\n') +
           lines.join(QLatin1Char('\n'));
}

} // namespace

void unset(Lines<Setting> const& settings, Committer& committer, MessageBar& messages, std::function<void()> const& isDone)
{
    std::vector<Edit> edits;
    QStringList lines;
    for (std::shared_ptr<Setting const> const& setting : settings)
        if (!setting->rows.empty()) {
            edits.push_back({setting, std::nullopt});
            lines += lineOf(*setting);
        }
    if (edits.size() == 1)
        committer.commit(edits);
    if (edits.size() < 2)
        return;
    auto const act = [&committer, edits, isDone] {
        committer.commit(edits);
        isDone();
    };
    messages.ask(QStringLiteral("unset"), question(lines),
                 {{Words::tr("&Unset %n", nullptr, static_cast<int>(edits.size())), act}, {Words::tr("&Keep them"), isDone}});
}

} // namespace Inspector
