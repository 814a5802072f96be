// SPDX-License-Identifier: MIT
//
// The time in the name of a recording is written in the digits of the system's locale. LC_ALL alone chooses it, also
// where the C library has no such locale.
#include <support/BoundLibrary.h>

#include <chrono>
#include <cstdlib>
#include <ctime>
#include <map>
#include <string>

namespace {

std::map<std::string, QString> const digitsOf = {
    {"C", QStringLiteral("0123456789")},
    {"ar_EG", QStringLiteral("\u0660\u0661\u0662\u0663\u0664\u0665\u0666\u0667\u0668\u0669")},
    {"fa_IR", QStringLiteral("\u06F0\u06F1\u06F2\u06F3\u06F4\u06F5\u06F6\u06F7\u06F8\u06F9")},
};

QString written(std::time_t time, QString const& digits)
{
    char ascii[32] = {};
    std::strftime(ascii, sizeof ascii, "%Y.%m.%d-%H.%M.%S", std::localtime(&time));
    QString result;
    for (char const* at = ascii; *at != '\0'; ++at)
        result += *at >= '0' && *at <= '9' ? digits[*at - '0'] : QChar(QLatin1Char(*at));
    return result;
}

// std::time may be some milliseconds behind this clock, which Qt asks.
std::time_t now() { return std::chrono::system_clock::to_time_t(std::chrono::system_clock::now()); }

TEST_F(BoundLibrary, RecordingBearsTheTimeInTheDigitsOfTheLocaleAndItsNumberInAscii)
{
    char const* const locale = std::getenv("LC_ALL");
    ASSERT_TRUE(locale && digitsOf.count(locale)) << "to be started with LC_ALL=C, ar_EG or fa_IR, as ctest does";
    m_productValues->setString("audioRecordPath", (m_home.path() / "folder").string());
    m_home.write("folder/Rec-6-a-b.wav", "content");

    std::time_t const before = now();
    QString const path = Settings::generateAudioRecordFilePath();
    std::time_t const after = now();
    QStringList expected;
    for (std::time_t time = before; time <= after; ++time)
        expected.append(inHome("folder/Rec-7-") + written(time, digitsOf.at(locale)) + QStringLiteral(".wav"));
    EXPECT_TRUE(expected.contains(path)) << path.toStdString() << " is none of " << expected.join(QLatin1Char(' ')).toStdString();
}

} // namespace
