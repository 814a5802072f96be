// SPDX-License-Identifier: MIT
//
// Prints what the library answers for hostile products and settings, so that builds with two versions of Qt can be compared.
#include <Answers.h>

#include <Catalogue/Catalogue.h>
#include <Storage/EmptyStorage.h>
#include <TestKit/FixedProductInfo.h>
#include <TestKit/ScopedBinding.h>
#include <TestKit/TemporaryHome.h>

#include <QFont>

#include <clocale>
#include <cstdio>
#include <filesystem>
#include <string>

namespace {

namespace fs = std::filesystem;

using Texts = std::vector<std::string>;

using namespace std::string_literals; // texts with a NUL

template <typename Answer>
void print(std::string const& question, Answer const& answer)
{
    std::fputs(Answers::lines(question, Answers::shown(answer)).c_str(), stdout);
}

// --- Preferences and locations -----------------------------------------------------------------------------------------

Texts const texts = {"",
                     "a",
                     "/x//y/./../z/",
                     " a ",
                     "a|#|b|#||#|c",
                     "|#|",
                     "|#||#",
                     "a\xFFz",
                     "\xC0\xAF",
                     "\xED\xA0\x80",
                     "a\0b:c"s,
                     "\0"s,
                     "\xEF\xBB\xBF"
                     "a",
                     u8"\u00E9e\u0301\u05D0\uFFFD\uFEFF",
                     u8"\U0001F3AC/\U00010400",
                     "%1%2%L3%99",
                     "/\\:*?\"<>|[](){}^$.+",
                     "~/x",
                     "a\r\n\t\x7F",
                     ",,x,,Y,",
                     std::string(300, 'l')};

// Answers every question for a text or bytes with one text, where it has one.
class OneText : public Storage::EmptyStorage {
public:
    explicit OneText(std::string const* text) : m_text(text) {}
    std::string getString(std::string const&, std::string const& value) const override { return m_text ? *m_text : value; }
    std::vector<unsigned char> getBytes(std::string const&, std::vector<unsigned char> const& value) const override
    {
        return m_text ? std::vector<unsigned char>(m_text->begin(), m_text->end()) : value;
    }
    void setString(std::string const& key, std::string const& value) override { print("written to " + key, value); }

private:
    std::string const* m_text;
};

void printPreferences()
{
    for (Catalogue::Preference const& preference : Catalogue::preferences()) {
        Catalogue::Value const value = preference.read();
        std::visit([&](auto const& answer) { print(preference.name, answer); }, value);
        preference.write(value);
    }
    for (Catalogue::Family const& family : Catalogue::families())
        for (std::string const& member : texts)
            std::visit([&](auto const& answer) { print(family.name + (' ' + Answers::shown(member)), answer); },
                       family.read(QString::fromStdString(member)));
    QStringList list;
    for (std::string const& element : texts)
        list.append(QString::fromStdString(element));
    write("list", list, false);
    print("list", read("list", list, false));
}

void printLocations()
{
    for (Catalogue::Location const& location : Catalogue::locations()) {
        bool const ofAnyText = std::holds_alternative<QString (*)(std::string const&)>(location.function) ||
                               std::holds_alternative<std::string (*)(std::string const&)>(location.function);
        Texts const none = {""};
        for (std::string const& argument : ofAnyText ? texts : location.arguments.empty() ? none : location.arguments)
            print(location.name + (' ' + Answers::shown(argument)), location.path(argument));
    }
    QFont const font = Settings::countFiguresDownFont();
    print("font", font.family());
    print("size", font.pointSize());
    print("normal", font.weight() == static_cast<int>(QFont::Normal));
}

void printSettings()
{
    auto const product = std::make_shared<TestKit::FixedProductInfo>();
    for (std::string const& text : texts) {
        auto const store = std::make_shared<OneText>(&text);
        TestKit::ScopedBinding const binding({product, store, store, Lumora::ioPath("resources")});
        print("stored", text);
        printPreferences();
    }
    auto const store = std::make_shared<OneText>(nullptr);
    for (std::string const& text : texts) {
        *product = TestKit::FixedProductInfo();
        product->vendor = product->product = product->sharedData = product->extensions = text;
        product->kind = text.empty() ? 1 : 0;
        TestKit::ScopedBinding const binding({product, store, store, Lumora::ioPath(text)});
        print("product", text);
        printLocations();
        printPreferences();
    }
}

} // namespace

int main()
{
    std::setlocale(LC_ALL, "");
    TestKit::TemporaryHome const folder;
    fs::current_path(folder.path());
    Answers::start(folder.path().string());
    printSettings();
    fs::current_path("/");
}
