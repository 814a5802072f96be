// SPDX-License-Identifier: MIT
//
// What the pane says of a setting, what it stores and what it keeps.
#include "PaneTest.h"

#include <QCheckBox>
#include <QClipboard>
#include <QComboBox>
#include <QLineEdit>
#include <QRadioButton>
#include <QSignalSpy>

namespace {

class Pane : public PaneTest {
protected:
    static bool press(QPushButton& button)
    {
        bool const isEnabled = button.isEnabled();
        button.click();
        return isEnabled;
    }
};

// --- States ---

TEST_F(Pane, EachStateHasItsWords)
{
    store("exportPath", std::string("/films"));
    store("keepVideoAspect", true);
    store("npsSendCount", std::string("three"));
    store("zoom", 42);
    open("lastTarget");
    struct {
        char const* key;
        char const* state;
        char const* kind;
        bool isUnsettable;
    } const cases[] = {
        {"lastTarget", "unset", "text \u00B7 transient \u00B7 product", false},
        {"exportPath", "set, since ", "text \u00B7 local \u00B7 product", true},
        {"keepVideoAspect", "set to default, since ", "bool \u00B7 roaming \u00B7 product", true},
        {"npsSendCount", "other kind, since ", "int \u00B7 transient \u00B7 product", true},
        {"zoom", "undeclared, since ", "int \u00B7 product", true},
    };
    for (auto const& [key, state, kind, isUnsettable] : cases) {
        go(key);
        EXPECT_EQ(text("Key"), QLatin1String(key));
        EXPECT_TRUE(text("State").startsWith(QLatin1String(state))) << key << ": " << text("State").toStdString();
        EXPECT_EQ(text("Type, class and store"), QString::fromUtf8(kind)) << key;
        EXPECT_EQ(button("Unset").isEnabled(), isUnsettable) << key;
    }
}

TEST_F(Pane, OtherKindIsSaidInTheWordsOfTheDoctor)
{
    store("npsSendCount", std::string("three"));
    open("npsSendCount");
    EXPECT_TRUE(text("State").contains(QStringLiteral("stored: three (string)")));
    EXPECT_TRUE(comes([&] {
        return text("State").contains(
            QStringLiteral("it holds a value of kind string where one of kind int is read, so the default is read"));
    }));
    EXPECT_EQ(words(), QStringList{QStringLiteral("0")}) << "the default is read";
}

TEST_F(Pane, DefaultSaysWhoComputesIt)
{
    open("exportPath");
    EXPECT_TRUE(text("Default").endsWith(QStringLiteral("/Videos/Lumora Library\ncomputed by defaultLumoraLibraryPath() at each read")));
    EXPECT_TRUE(comes([&] { return text("Why").contains(QStringLiteral("default: ")); }));
    EXPECT_TRUE(text("Why").contains(QStringLiteral("product store ")));
    go("lastTarget");
    EXPECT_EQ(text("Default"), QStringLiteral("(empty)"));
}

TEST_F(Pane, NoSettingIsAnEmptyPane)
{
    open("lastTarget");
    m_pane->show(std::shared_ptr<Setting const>());
    m_pane->edit();
    EXPECT_FALSE(has<Inspector::Passage>());
}

// --- Looking only ---

TEST_F(Pane, LookingOnlyShowsNoEditor)
{
    store("lastTarget", std::string("tv"));
    start();
    m_pane->allowChanges(false, QStringLiteral("Only looking: the disk is read-only"));
    go("lastTarget");
    EXPECT_FALSE(has<Inspector::ValueEditor>());
    EXPECT_EQ(text("Value"), QStringLiteral("tv"));
    EXPECT_EQ(the<Inspector::Passage>(QStringLiteral("Value")).accessibleDescription(),
              QStringLiteral("Only looking: the disk is read-only"));
    EXPECT_EQ(the<Inspector::Passage>(QStringLiteral("Value")).toolTip(), QStringLiteral("Only looking: the disk is read-only"));
    EXPECT_FALSE(button("Unset").isEnabled());
}

// --- Storing ---

TEST_F(Pane, EnterStoresATextAndGoesBack)
{
    store("lastTarget", std::string("tv"));
    open("lastTarget");
    type("phone");
    EXPECT_EQ(m_commits, 0u);
    EXPECT_TRUE(text("Command").endsWith(QStringLiteral(" set lastTarget phone")));
    PaneTest::press(Qt::Key_Return);
    EXPECT_EQ(answered(), Outcome::stored);
    EXPECT_EQ(stored("lastTarget"), SqliteStorage::Value("phone"));
    EXPECT_EQ(m_returns, 1);
    EXPECT_EQ(m_pane->drafts().size(), 0u);
    EXPECT_EQ(words(), QStringList{QStringLiteral("phone")});
}

TEST_F(Pane, NumbersAreWholeAndOf32Bits)
{
    open("npsSendCount");
    type("1x2");
    EXPECT_EQ(words(), QStringList{QStringLiteral("12")}) << "a letter is no digit";
    type("-");
    PaneTest::press(Qt::Key_Return);
    EXPECT_EQ(m_commits, 0u);
    EXPECT_EQ(text("Not stored"), QStringLiteral("give a whole number from -2147483648 to 2147483647"));
    type("-2147483648");
    PaneTest::press(Qt::Key_Enter);
    EXPECT_EQ(answered(), Outcome::stored);
    EXPECT_EQ(stored("npsSendCount"), SqliteStorage::Value(-2147483647 - 1));
}

TEST_F(Pane, ChoosingIsTheCommitOfABool)
{
    open("useGuideLines");
    bool const defaultValue = std::get<bool>(setting("useGuideLines")->defaultValue);
    std::string const other = defaultValue ? "false" : "true";
    QTest::mouseClick(&the<QRadioButton>(QString::fromStdString(other)), Qt::LeftButton, {}, QPoint(8, 8));
    EXPECT_EQ(answered(), Outcome::stored);
    EXPECT_EQ(stored("useGuideLines"), SqliteStorage::Value(!defaultValue));
    the<QRadioButton>(QStringLiteral("not set: follows the default")).click();
    EXPECT_EQ(answered(), Outcome::stored);
    EXPECT_EQ(stored("useGuideLines"), SqliteStorage::Value());
}

TEST_F(Pane, ArrowKeysChooseNothing)
{
    store("useGuideLines", true);
    open("useGuideLines");
    m_pane->edit();
    for (Qt::Key const key : {Qt::Key_Down, Qt::Key_Down, Qt::Key_Down, Qt::Key_Up, Qt::Key_Right, Qt::Key_Left})
        PaneTest::press(key);
    EXPECT_EQ(m_commits, 0u);
    EXPECT_EQ(words(), QStringList{QStringLiteral("true")});
    PaneTest::press(Qt::Key_Space);
    EXPECT_EQ(answered(), Outcome::stored);
    EXPECT_EQ(stored("useGuideLines"), SqliteStorage::Value(false)) << "the focus had come to it";
}

TEST_F(Pane, UnsetRemovesTheRow)
{
    store("lastTarget", std::string("tv"));
    open("lastTarget");
    EXPECT_TRUE(press(button("Unset")));
    EXPECT_EQ(answered(), Outcome::stored);
    EXPECT_EQ(stored("lastTarget"), SqliteStorage::Value());
    EXPECT_FALSE(button("Unset").isEnabled());
}

TEST_F(Pane, TextOfSeveralLinesIsStoredWithControl)
{
    store("lastTarget", std::string("one\ntwo"));
    open("lastTarget");
    m_pane->edit();
    PaneTest::press(Qt::Key_End, Qt::ControlModifier);
    PaneTest::press(Qt::Key_Return);
    QTest::keyClicks(QApplication::focusWidget(), QStringLiteral("three"));
    EXPECT_EQ(m_commits, 0u);
    PaneTest::press(Qt::Key_Return, Qt::ControlModifier);
    EXPECT_EQ(answered(), Outcome::stored);
    EXPECT_EQ(stored("lastTarget"), SqliteStorage::Value("one\ntwo\nthree"));
}

TEST_F(Pane, NulBesideAnEditIsKept)
{
    store("lastTarget", std::string("a\0b\xC2\xA0", 5));
    open("lastTarget");
    EXPECT_TRUE(text("Help").contains(QStringLiteral("escaped: a\\x00b"))) << text("Help").toStdString();
    m_pane->edit();
    PaneTest::press(Qt::Key_End);
    QTest::keyClicks(QApplication::focusWidget(), QStringLiteral("c"));
    PaneTest::press(Qt::Key_Return);
    EXPECT_EQ(answered(), Outcome::stored);
    EXPECT_EQ(stored("lastTarget"), SqliteStorage::Value(std::string("a\0b\xC2\xA0"
                                                                     "c",
                                                                     6)));
}

TEST_F(Pane, WordsThatTheProductAcceptsAreOffered)
{
    open("theme");
    auto& choice = the<QComboBox>();
    EXPECT_EQ(choice.count(), 2);
    choice.setCurrentIndex(1);
    EXPECT_EQ(m_commits, 0u);
    m_pane->edit();
    PaneTest::press(Qt::Key_Return);
    EXPECT_EQ(answered(), Outcome::stored);
    EXPECT_EQ(stored("theme"), SqliteStorage::Value("light"));
}

// --- Leaving ---

TEST_F(Pane, EscapeForgetsWhatWasTyped)
{
    store("lastTarget", std::string("tv"));
    open("lastTarget");
    type("phone");
    EXPECT_EQ(m_pane->drafts(), std::vector<std::string>{setting("lastTarget")->id});
    PaneTest::press(Qt::Key_Escape);
    EXPECT_EQ(m_commits, 0u);
    EXPECT_EQ(m_returns, 1);
    EXPECT_EQ(m_pane->drafts().size(), 0u);
    EXPECT_EQ(words(), QStringList{QStringLiteral("tv")});
}

TEST_F(Pane, DraftIsKeptForItsSetting)
{
    open("lastTarget");
    QSignalSpy const spy(m_pane.get(), &Inspector::SettingPane::draftsChanged);
    type("phone");
    EXPECT_EQ(spy.count(), 1);
    go("lastUsedPresetId");
    type("nine");
    EXPECT_EQ(m_pane->drafts(), (std::vector<std::string>{setting("lastTarget")->id, setting("lastUsedPresetId")->id}));
    go("lastTarget");
    EXPECT_EQ(words(), QStringList{QStringLiteral("phone")});
    PaneTest::press(Qt::Key_Tab);
    m_pane->allowChanges(false);
    m_pane->allowChanges(true);
    EXPECT_EQ(words(), QStringList{QStringLiteral("phone")});
    EXPECT_EQ(m_commits, 0u);
    type("x");
    PaneTest::press(Qt::Key_Backspace);
    EXPECT_EQ(m_pane->drafts(), std::vector<std::string>{setting("lastUsedPresetId")->id}) << "it is what is stored again";
}

TEST_F(Pane, AllowingAgainLeavesTheEditorInTheHand)
{
    open("lastTarget");
    m_pane->edit();
    QWidget const* const field = QApplication::focusWidget();
    m_pane->allowChanges(true);
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    EXPECT_EQ(QApplication::focusWidget(), field);
}

// --- Others ---

TEST_F(Pane, LiveChangeLeavesAnEditorInUseAlone)
{
    store("lastTarget", std::string("tv"));
    open("lastTarget");
    type("phone");
    store("lastTarget", std::string("cinema"));
    EXPECT_TRUE(comes([&] { return text("Help").contains(QStringLiteral("now cinema there")); }));
    EXPECT_EQ(words(), QStringList{QStringLiteral("phone")});
}

TEST_F(Pane, LiveChangeComesToAnEditorThatNobodyUses)
{
    store("lastTarget", std::string("tv"));
    open("lastTarget");
    store("lastTarget", std::string("cinema"));
    EXPECT_TRUE(comes([&] { return words() == QStringList{QStringLiteral("cinema")}; }));
}

TEST_F(Pane, ConflictHasThreeValuesAndTheFocusOnKeeping)
{
    store("lastTarget", std::string("tv"));
    open("lastTarget");
    type("phone");
    store("lastTarget", std::string("cinema"));
    PaneTest::press(Qt::Key_Return);
    EXPECT_EQ(answered(), Outcome::conflict);
    EXPECT_EQ(text("Not stored"), QStringLiteral("\u26A0 Changed meanwhile.\nYou saw: tv\nThere is now: cinema\nYou entered: phone"));
    EXPECT_TRUE(button("Keep what is there").hasFocus());
    EXPECT_EQ(stored("lastTarget"), SqliteStorage::Value("cinema"));
    press(button("Keep what is there"));
    EXPECT_EQ(words(), QStringList{QStringLiteral("cinema")});
    EXPECT_EQ(m_pane->drafts().size(), 0u);
    EXPECT_EQ(m_commits, 1u);
    EXPECT_EQ(m_returns, 1);
}

TEST_F(Pane, ConflictIsStoredOverOnRequest)
{
    store("lastTarget", std::string("tv"));
    open("lastTarget");
    type("phone");
    store("lastTarget", std::string("cinema"));
    PaneTest::press(Qt::Key_Return);
    EXPECT_EQ(answered(), Outcome::conflict);
    press(button("Store mine"));
    EXPECT_EQ(answered(), Outcome::stored);
    EXPECT_EQ(stored("lastTarget"), SqliteStorage::Value("phone"));
    EXPECT_FALSE(has<Inspector::AnswerBox>());
}

TEST_F(Pane, RefusalKeepsTheDraft)
{
    open("userCustomColors");
    the<Inspector::ValueEditor>().setWords({QStringLiteral("a|#|b")});
    Q_EMIT the<Inspector::ValueEditor>().changed();
    press(button("Store list"));
    EXPECT_EQ(answered(), Outcome::refused);
    EXPECT_EQ(text("Not stored"), QStringLiteral("the element holds the separator of stored lists and would come back in pieces"));
    EXPECT_EQ(words(), QStringList{QStringLiteral("a|#|b")});
    EXPECT_EQ(m_pane->drafts().size(), 1u);
    EXPECT_EQ(m_returns, 0);
}

TEST_F(Pane, WaitingForAnAnswerIsSaidAndNothingElseIsAskedFor)
{
    store("lastTarget", std::string("tv"));
    open("lastTarget");
    m_desk.reset();
    QObject::disconnect(m_pane.get(), &Inspector::SettingPane::wantsToStore, nullptr, nullptr);
    int asked = 0;
    QObject::connect(m_pane.get(), &Inspector::SettingPane::wantsToStore, m_pane.get(), [&] { ++asked; });
    type("phone");
    PaneTest::press(Qt::Key_Return);
    EXPECT_TRUE(comes([&] { return text("Help").contains(QStringLiteral("waiting for another process")); }));
    PaneTest::press(Qt::Key_Return);
    EXPECT_EQ(asked, 1);
    int cancelled = 0;
    QObject::connect(m_pane.get(), &Inspector::SettingPane::wantsToCancel, m_pane.get(), [&] { ++cancelled; });
    press(button("Cancel"));
    EXPECT_EQ(cancelled, 1);
    Answer answer;
    answer.outcome = Outcome::failed;
    answer.error =
        Storage::StorageError(Storage::StorageError::Code::full, "product-settings.sqlite", "store", "the disk is full", "make room");
    m_pane->take(answer);
    EXPECT_TRUE(text("Not stored").contains(QStringLiteral("the disk is full")));
    EXPECT_EQ(words(), QStringList{QStringLiteral("phone")});
}

// --- Undeclared keys ---

TEST_F(Pane, UnknownKeysAreChangedOnRequestOnly)
{
    store("zoom", 42);
    open("zoom");
    EXPECT_FALSE(has<Inspector::ValueEditor>());
    EXPECT_EQ(text("Value"), QStringLiteral("42"));
    the<QCheckBox>().click();
    type("43");
    PaneTest::press(Qt::Key_Return);
    EXPECT_EQ(answered(), Outcome::stored);
    EXPECT_EQ(stored("zoom"), SqliteStorage::Value(43));
    store("zoom", 44);
    ASSERT_TRUE(comes([&] { return setting("zoom")->shownValue == QStringLiteral("44"); }));
    press(button("Unset"));
    EXPECT_EQ(answered(), Outcome::stored);
    EXPECT_EQ(stored("zoom"), SqliteStorage::Value());
}

// --- The command ---

TEST_F(Pane, CommandIsCopiedWhole)
{
    store("lastTarget", std::string("it's"));
    open("lastTarget");
    press(button("Copy"));
    EXPECT_TRUE(QApplication::clipboard()->text().startsWith(QStringLiteral("editor-settings --product ")));
    EXPECT_TRUE(QApplication::clipboard()->text().endsWith(QStringLiteral(" set lastTarget 'it'\\''s'")));
    go("lastUsedPresetId");
    EXPECT_TRUE(text("Command").endsWith(QStringLiteral(" unset lastUsedPresetId")));
}

} // namespace
