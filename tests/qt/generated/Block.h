// SPDX-License-Identifier: MIT
#pragma once

#include <Answers.h>
#include <Chance.h>

#include <Storage/EmptyStorage.h>
#include <TestKit/FixedProductInfo.h>
#include <TestKit/ScopedBinding.h>
#include <TestKit/TemporaryHome.h>

#include <filesystem>
#include <memory>
#include <set>
#include <string>
#include <utility>
#include <vector>

/// A store with one answer of each kind, but for formats and numbers, which keeps what was written.
class OneAnswer : public Storage::EmptyStorage {
public:
    bool boolean = false;
    std::string text;
    std::string format;
    std::vector<int> numbers = {0}; // in turn

    bool getBool(std::string const&, bool) const override { return boolean; }
    int getInt(std::string const&, int) const override { return numbers[m_asked++ % numbers.size()]; }
    std::string getString(std::string const& key, std::string const&) const override
    {
        m_key = key;
        return key.find("Format") == std::string::npos ? text : format;
    }
    std::vector<unsigned char> getBytes(std::string const& key, std::vector<unsigned char> const&) const override
    {
        m_key = key;
        return {text.begin(), text.end()};
    }
    void setBool(std::string const& key, bool value) override { add(key, Answers::shown(value)); }
    void setInt(std::string const& key, int value) override { add(key, Answers::shown(value)); }
    void setString(std::string const& key, std::string const& value) override { add(key, Answers::shown(value)); }
    void setBytes(std::string const& key, std::vector<unsigned char> const& value) override
    {
        add(key, Answers::shown(std::string(value.begin(), value.end())));
    }

    std::string const& lastKey() const { return m_key; }
    std::string takeWritten() { return std::exchange(m_written, {}); }

private:
    void add(std::string const& key, std::string const& value) { m_written += Answers::shown(key) + ' ' + value + ' '; }

    mutable std::size_t m_asked = 0;
    mutable std::string m_key;
    std::string m_written;
};

/// What was asked and answered in a home folder, which has a file "target" and a link "link" to a folder "folder".
class Block {
public:
    explicit Block(std::uint64_t number) : chance(number)
    {
        std::filesystem::current_path(home.path());
        home.write("target", "content");
        std::filesystem::create_symlink("folder", home.path() / "link");
        Answers::start(home.path().string());
    }
    ~Block() { std::filesystem::current_path("/"); }
    Block(Block const&) = delete;
    Block& operator=(Block const&) = delete;

    void note(std::string const& input) { m_text += input + '\n'; }
    void askShown(std::string const& question, std::string const& shownAnswer)
    {
        m_text += Answers::lines(question, shownAnswer);
        m_answers.insert(shownAnswer);
        ++m_questions;
    }
    template <typename Answer>
    void ask(std::string const& question, Answer const& answer)
    {
        askShown(question, Answers::shown(answer));
    }

    std::size_t questions() const { return m_questions; }
    std::size_t differentAnswers() const { return m_answers.size(); }
    std::string const& text() const { return m_text; }

    TestKit::TemporaryHome home;
    Chance chance;
    std::shared_ptr<TestKit::FixedProductInfo> const product = std::make_shared<TestKit::FixedProductInfo>();
    std::shared_ptr<OneAnswer> const store = std::make_shared<OneAnswer>();

private:
    std::string m_text;
    std::set<std::string> m_answers;
    std::size_t m_questions = 0;
};
