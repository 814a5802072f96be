// SPDX-License-Identifier: MIT
//
// Editors in the hands of somebody who means no change, and the editors whose values have a form of their own.
#include "PaneTest.h"

#include <Window/editors/BytesEditor.h>
#include <Window/editors/FolderEditor.h>

#include <support/Tally.h>

#include <QAccessible>
#include <QCheckBox>
#include <QClipboard>
#include <QFileDialog>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QMimeData>
#include <QPlainTextEdit>
#include <QRadioButton>
#include <QWheelEvent>

#include <fstream>
#include <iterator>

namespace {

using Inspector::ValueEditor;

class Editors : public PaneTest {
protected:
    std::vector<std::shared_ptr<Setting const>> all() const { return {m_snapshot->settings.begin(), m_snapshot->settings.end()}; }

    // What somebody does who opens an editor and leaves it.
    void leaveInEachWay()
    {
        for (Qt::Key const key : {Qt::Key_Return, Qt::Key_Escape, Qt::Key_Tab, Qt::Key_Backtab, Qt::Key_Down, Qt::Key_Up}) {
            m_pane->edit();
            press(key);
        }
        m_pane->edit();
        press(Qt::Key_Return, Qt::ControlModifier);
        for (Inspector::Passage* const passage : m_pane->findChildren<Inspector::Passage*>())
            if (passage->isVisible())
                QTest::mouseClick(passage->viewport(), Qt::LeftButton);
    }

    static void turn(QWidget& widget, int angle)
    {
        QPointF const place = widget.rect().center();
        QWheelEvent event(place, widget.mapToGlobal(place.toPoint()), {}, {0, angle}, Qt::NoButton, Qt::NoModifier, Qt::NoScrollPhase,
                          false);
        QApplication::sendEvent(&widget, &event);
    }

    void store(QString const& words)
    {
        the<QLineEdit>().setText(words);
        m_pane->edit();
        press(Qt::Key_Return);
    }

    using PaneTest::store;
};

// Texts that a field may spoil: each alone, twice as a list, on two lines, behind a letter, and before a NUL.
std::vector<std::string> hostileTexts()
{
    std::string const separator = "|#|";
    std::vector<std::string> bases = {
        "",
        " ",
        "\xFF\xFE",
        "\xC3",
        "\xED\xA0\x80",
        "\xEF\xBB\xBF"
        "mark",
        std::string("\0", 1),
        "\r",
        "\r\n",
        "\t\x1b[31m\x7f",
        "\xC2\xA0no-break\xC2\xA0",
        "\xE2\x80\xA8line\xE2\x80\xA9paragraph",
        "\xE2\x80\xAE"
        "right to left \xD7\xA9\xD7\x9C\xD7\x95\xD7\x9D",
        "\xEF\xB7\x90 noncharacters \xEF\xB7\x91\xEF\xBF\xBF",
        "|#|",
        "a||#||#",
        "<b>%1</b>&amp;",
        "~/relative/../path",
        "\xF0\x9F\x8E\xAC\xEF\xB8\x8F\xE2\x80\x8D",
        std::string(1 << 20, 'x'),
    };
    std::vector<std::string> all;
    for (std::string const& base : bases)
        for (std::string const& text : {base, base + separator + base, base + '\n' + base, 'a' + base, base + '\0'})
            all.push_back(text);
    return all;
}

TEST_F(Editors, LeavingStoresNothingWhateverIsStored)
{
    std::vector<std::string> const texts = hostileTexts();
    ASSERT_EQ(texts.size(), 100u);
    int number = 0;
    SqliteStorage others(m_productFile);
    std::vector<SqliteStorage::Change> changes;
    for (std::string const& text : texts) {
        std::string const name = std::to_string(number++);
        for (char const* family : {"text/", "list/", "folder/", "number/", "flag/", "bytes/", "undeclared"})
            changes.push_back({family + name, text});
        changes.push_back({"bytes/b" + name, std::vector<unsigned char>(text.begin(), text.end())});
        changes.push_back({"number/n" + name, (number % 100 - 50) * 40000000});
        changes.push_back({"flag/f" + name, number % 2 == 0});
    }
    others.apply(changes);
    std::vector<SqliteStorage::Row> const before = others.rows();
    open("rate");
    ASSERT_TRUE(comes([&] { return m_snapshot->settings.size() > 1000; }));
    m_pane->show(setting("undeclared0"));
    the<QCheckBox>().setChecked(true);
    int visited = 0;
    for (int index = 0; index < static_cast<int>(m_snapshot->settings.size()); index += times(59, 5, 1)) {
        std::shared_ptr<Setting const> const setting = m_snapshot->settings[static_cast<std::size_t>(index)];
        m_pane->show(setting);
        leaveInEachWay();
        ASSERT_EQ(m_commits, 0u) << setting->cells[0].toStdString();
        ASSERT_EQ(m_pane->drafts().size(), 0u) << setting->cells[0].toStdString();
        ++visited;
    }
    EXPECT_GE(visited, times(1000 / 59, 1000 / 5, 1000));
    m_desk.reset();
    EXPECT_EQ(others.rows(), before);
}

TEST_F(Editors, WheelChangesNothing)
{
    store("theme", std::string("dark"));
    store("useGuideLines", true);
    store("npsSendCount", 7);
    store("userCustomColors", std::string("navy|#|red"));
    store("exportPath", std::string("/films"));
    store("rate_N", 24);
    store("rate_D", 1);
    open("theme");
    int turns = 0;
    char const* const keys[] = {"theme", "useGuideLines", "npsSendCount", "userCustomColors", "exportPath", "rate", "lastTarget"};
    for (int round = 0; turns < times(5000, 20000, 100000); ++round)
        for (char const* key : keys) {
            go(key);
            m_pane->edit();
            QStringList const before = words();
            for (QWidget* const widget : m_pane->findChildren<QWidget*>())
                if (widget->isVisible()) {
                    turn(*widget, round % 2 == 0 ? 120 : -120);
                    ++turns;
                }
            ASSERT_EQ(words(), before) << key;
        }
    EXPECT_EQ(m_commits, 0u);
    EXPECT_EQ(m_pane->drafts().size(), 0u);
}

// --- Folders ---

TEST_F(Editors, FolderIsCheckedInTheWordsOfTheCommandLine)
{
    open("exportPath");
    auto const status = [&] {
        QStringList texts;
        for (QLabel const* label : the<Inspector::FolderEditor>().findChildren<QLabel*>())
            texts += label->text();
        return texts.join(QLatin1Char('\n'));
    };
    EXPECT_EQ(status(), QStringLiteral("checking\u2026"));
    struct {
        QString path;
        char const* words;
    } const cases[] = {
        {QString::fromStdString((m_home.path() / "new").string()), "missing; the editor can make it"},
        {QString::fromStdString(m_place.productFile.string()), "\u26A0 not a folder"},
        {QStringLiteral("films"), "\u26A0 not absolute: it depends on the folder that the editor is started in"},
        {QString(), "\u26A0 empty"},
        {QStringLiteral("/tmp"), "a folder that can be used"},
    };
    for (auto const& [path, words] : cases) {
        the<QLineEdit>().setText(path);
        EXPECT_TRUE(comes([&, expected = QString::fromUtf8(words)] { return status() == expected; }))
            << path.toStdString() << ": " << status().toStdString();
    }
    EXPECT_EQ(m_commits, 0u) << "nothing is stored while somebody types";
}

TEST_F(Editors, MissingFolderIsStoredAtOnce)
{
    open("exportPath");
    store(QStringLiteral("/no/such/folder"));
    EXPECT_EQ(answered(), Outcome::stored);
    EXPECT_EQ(stored("exportPath"), SqliteStorage::Value("/no/such/folder"));
}

TEST_F(Editors, RelativePathIsAskedForOnceMore)
{
    open("exportPath");
    store(QStringLiteral("films"));
    EXPECT_EQ(m_commits, 0u);
    EXPECT_EQ(
        text("Not stored"),
        QStringLiteral("It is not absolute: it depends on the folder that the editor is started in. Enter again stores it all the same."));
    press(Qt::Key_Return);
    EXPECT_EQ(answered(), Outcome::stored);
    EXPECT_EQ(stored("exportPath"), SqliteStorage::Value("films"));
}

TEST_F(Editors, BrowsingDoesNotBlockAndItsChoiceIsADraft)
{
    open("exportPath");
    button("Browse\u2026").click();
    auto* const dialog = m_pane->findChild<QFileDialog*>();
    ASSERT_TRUE(dialog);
    EXPECT_FALSE(dialog->isModal());
    Q_EMIT dialog->fileSelected(QStringLiteral("/tmp"));
    EXPECT_EQ(words(), QStringList{QStringLiteral("/tmp")});
    EXPECT_EQ(m_pane->drafts().size(), 1u);
    EXPECT_EQ(m_commits, 0u);
}

TEST_F(Editors, DroppedFolderIsADraft)
{
    open("exportPath");
    QMimeData data;
    data.setUrls({QUrl::fromLocalFile(QStringLiteral("/tmp"))});
    QDragEnterEvent enter(QPoint(5, 5), Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(&the<QLineEdit>(), &enter);
    EXPECT_TRUE(enter.isAccepted());
    QDropEvent drop(QPointF(5, 5), Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(&the<QLineEdit>(), &drop);
    EXPECT_EQ(words(), QStringList{QStringLiteral("/tmp")});
    EXPECT_EQ(m_commits, 0u);
}

TEST_F(Editors, PathsRunFromLeftToRight)
{
    QApplication::setLayoutDirection(Qt::RightToLeft);
    open("exportPath");
    EXPECT_EQ(the<QLineEdit>().layoutDirection(), Qt::LeftToRight);
    EXPECT_EQ(m_pane->layoutDirection(), Qt::RightToLeft);
    QApplication::setLayoutDirection(Qt::LeftToRight);
}

// --- Lists ---

TEST_F(Editors, ListIsChangedAndStoredByItsButton)
{
    store("userCustomColors", std::string("navy|#|odd text|#|#ff8800"));
    open("userCustomColors");
    auto& list = the<QListWidget>();
    EXPECT_EQ(list.item(0)->data(Qt::DecorationRole).value<QColor>(), QColor(0, 0, 128));
    EXPECT_FALSE(list.item(1)->data(Qt::DecorationRole).isValid()) << "text that is no colour stays text";
    list.setCurrentRow(2);
    button("Up").click();
    list.setCurrentRow(2);
    button("Remove").click();
    button("Add").click();
    auto* const field = list.findChild<QLineEdit*>();
    ASSERT_TRUE(field);
    QTest::keyClicks(field, QStringLiteral("red"));
    QTest::keyClick(field, Qt::Key_Return);
    EXPECT_EQ(m_commits, 0u);
    EXPECT_TRUE(comes([&] { return words() == QStringList({QStringLiteral("navy"), QStringLiteral("#ff8800"), QStringLiteral("red")}); }));
    EXPECT_TRUE(text("Command").endsWith(QStringLiteral(" set userCustomColors navy '#ff8800' red")));
    button("Store list").click();
    EXPECT_EQ(answered(), Outcome::stored);
    EXPECT_EQ(stored("userCustomColors"), SqliteStorage::Value("navy|#|#ff8800|#|red"));
}

TEST_F(Editors, EmptyElementIsRefused)
{
    store("userCustomColors", std::string("navy"));
    open("userCustomColors");
    button("Add").click();
    button("Store list").click();
    EXPECT_EQ(answered(), Outcome::refused);
    EXPECT_EQ(text("Not stored"), QStringLiteral("an empty element is lost when the list is read back; leave it out"));
}

// --- Fractions ---

TEST_F(Editors, FractionIsStoredWholeAndShownInLowestTerms)
{
    open("rate");
    EXPECT_EQ(words(), QStringList{QStringLiteral("25/1")});
    the<QLineEdit>(QStringLiteral("Numerator")).setText(QStringLiteral("60000"));
    the<QLineEdit>(QStringLiteral("Denominator")).setText(QStringLiteral("0"));
    m_pane->edit();
    press(Qt::Key_Return);
    EXPECT_EQ(m_commits, 0u);
    EXPECT_TRUE(text("Not stored").startsWith(QStringLiteral("give a fraction such as 30000/1001")));
    the<QLineEdit>(QStringLiteral("Denominator")).setText(QStringLiteral("2002"));
    bool isShown = false;
    for (QLabel const* label : the<ValueEditor>().findChildren<QLabel*>())
        isShown = isShown || label->text() == QStringLiteral("= 30000/1001");
    EXPECT_TRUE(isShown);
    press(Qt::Key_Return);
    EXPECT_EQ(answered(), Outcome::stored);
    EXPECT_EQ(stored("rate_N"), SqliteStorage::Value(30000));
    EXPECT_EQ(stored("rate_D"), SqliteStorage::Value(1001));
}

// --- Bytes ---

class Bytes : public Editors {
protected:
    static constexpr unsigned char odd[] = {0, 0xFF, 0x80, '\n', '\r', 0};

    // What the file dialog of the button does with `file`.
    void choose(char const* name, std::filesystem::path const& file)
    {
        button(name).click();
        auto* const dialog = m_pane->findChild<QFileDialog*>();
        ASSERT_TRUE(dialog);
        Q_EMIT dialog->fileSelected(QString::fromStdString(file.string()));
        delete dialog;
    }
};

TEST_F(Bytes, GoToAFileAndComeFromOneUnchanged)
{
    store("bytes/a", std::vector<unsigned char>(std::begin(odd), std::end(odd)));
    open("bytes/a");
    EXPECT_TRUE(the<QPlainTextEdit>().toPlainText().startsWith(QStringLiteral("0000  00 ff 80 0a 0d 00 ")));
    EXPECT_TRUE(the<QPlainTextEdit>().isReadOnly());
    std::filesystem::path const file = m_home.path() / "bytes";
    choose("Save as file\u2026", file);
    std::ifstream saved(file, std::ios::binary);
    EXPECT_EQ(std::string(std::istreambuf_iterator<char>(saved), {}), std::string(std::begin(odd), std::end(odd)));
    EXPECT_EQ(m_commits, 0u);
    choose("Load from file\u2026", file);
    EXPECT_EQ(m_commits, 0u) << "the same bytes";
    std::ofstream(file, std::ios::binary) << std::string("\xFF\0", 2);
    choose("Load from file\u2026", file);
    EXPECT_EQ(answered(), Outcome::stored);
    EXPECT_EQ(stored("bytes/a"), SqliteStorage::Value(std::vector<unsigned char>{0xFF, 0}));
}

TEST_F(Bytes, NothingButARegularFileOfModestSizeIsLoaded)
{
    open("mainWindowGeometry");
    std::filesystem::path const large = m_home.path() / "large";
    std::ofstream(large).put('x');
    std::filesystem::resize_file(large, 16 * 1024 * 1024 + 1);
    for (std::filesystem::path const& file : {large, std::filesystem::path("/dev/zero"), m_home.path(), m_home.path() / "none"}) {
        choose("Load from file\u2026", file);
        EXPECT_TRUE(text("Trouble").contains(QStringLiteral("is no file of at most 16 MiB"))) << file;
    }
    EXPECT_EQ(m_commits, 0u);
}

TEST_F(Bytes, GeometryOfThisQtIsRecognised)
{
    QWidget window;
    window.setGeometry(30, 40, 300, 200);
    QByteArray const bytes = window.saveGeometry();
    store("mainWindowGeometry", std::vector<unsigned char>(bytes.begin(), bytes.end()));
    open("mainWindowGeometry");
    EXPECT_TRUE(text("What the bytes look like").startsWith(QStringLiteral("66 bytes, looks like window geometry of Qt, version 3.0")));
    EXPECT_TRUE(text("What the bytes look like").contains(QStringLiteral("now 30,40 300\u00D7200")));
    window.setGeometry(90000, 40, 300, 200);
    QByteArray const lost = window.saveGeometry();
    store("mainWindowGeometry", std::vector<unsigned char>(lost.begin(), lost.end()));
    EXPECT_TRUE(comes([&] { return text("What the bytes look like").contains(QStringLiteral("wholly outside the screens")); }));
}

TEST_F(Bytes, TextThatIsNotUtf8IsSeenAsBytesAndNotEdited)
{
    store("lastTarget", std::string("a\xFF"));
    open("lastTarget");
    EXPECT_TRUE(the<QPlainTextEdit>().toPlainText().startsWith(QStringLiteral("0000  61 ff ")));
    EXPECT_FALSE(has<QLineEdit>());
    EXPECT_TRUE(text("Help").contains(QStringLiteral("A field would not keep it as it is")));
    button("Unset").click();
    EXPECT_EQ(answered(), Outcome::stored);
    EXPECT_TRUE(has<QLineEdit>());
}

// --- Personal values, names, sizes ---

QStringList spoken(QAccessibleInterface& item)
{
    QStringList texts;
    for (QAccessible::Text const kind : {QAccessible::Name, QAccessible::Description, QAccessible::Value, QAccessible::Help})
        texts += item.text(kind);
    if (QAccessibleTextInterface* const text = item.textInterface())
        texts += text->text(0, text->characterCount());
    for (int child = 0; child < item.childCount(); ++child)
        if (QAccessibleInterface* const below = item.child(child))
            texts += spoken(*below);
    return texts;
}

TEST_F(Editors, PersonalValueIsNowhereUntilItIsRevealed)
{
    store("who", std::string("Planted Secret"));
    open("who");
    QString const hidden = spoken(*QAccessible::queryAccessibleInterface(m_pane.get())).join(QLatin1Char('\n'));
    EXPECT_FALSE(hidden.contains(QStringLiteral("Planted")));
    EXPECT_TRUE(hidden.contains(QStringLiteral("personal, hidden")));
    button("Copy").click();
    EXPECT_TRUE(QApplication::clipboard()->text().endsWith(QStringLiteral(" set who '\u2026'")));
    QStringList revealed;
    QObject::connect(m_pane.get(), &Inspector::SettingPane::isRevealed, m_pane.get(),
                     [&](bool isIt) { revealed += isIt ? QStringLiteral("show") : QStringLiteral("hide"); });
    button("Show").click();
    EXPECT_EQ(words(), QStringList{QStringLiteral("Planted Secret")});
    EXPECT_TRUE(spoken(*QAccessible::queryAccessibleInterface(m_pane.get())).join(QLatin1Char('\n')).contains(QStringLiteral("Planted")));
    type("Another Secret");
    store("who", std::string("Third Secret"));
    ASSERT_TRUE(comes([&] { return text("Help").contains(QStringLiteral("now Third Secret there")); }));
    press(Qt::Key_Return);
    EXPECT_EQ(answered(), Outcome::conflict);
    for (char const* key : {"lastTarget", "who"}) {
        go(key);
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        EXPECT_FALSE(
            spoken(*QAccessible::queryAccessibleInterface(m_pane.get())).join(QLatin1Char('\n')).contains(QStringLiteral("Secret")))
            << key << ": another line was looked at meanwhile";
    }
    EXPECT_EQ(revealed, QStringList{QStringLiteral("show")});
}

TEST_F(Editors, EverythingThatTakesTheFocusHasAName)
{
    store("bytes/a", std::vector<unsigned char>{1});
    store("zoom", 1);
    open("bytes/a");
    int seen = 0;
    for (std::shared_ptr<Setting const> const& setting : all()) {
        m_pane->show(setting);
        for (QWidget* const widget : m_pane->findChildren<QWidget*>())
            if (widget->isVisible() && widget->focusPolicy() != Qt::NoFocus && widget->focusProxy() == nullptr) {
                QAccessibleInterface* const item = QAccessible::queryAccessibleInterface(widget);
                EXPECT_FALSE(item->text(QAccessible::Name).isEmpty()) << setting->key << ": " << widget->metaObject()->className();
                ++seen;
            }
    }
    EXPECT_GT(seen, 500);
}

TEST_F(Editors, NothingIsCutOffAtTheWidthOfThePane)
{
    store("bytes/a", std::vector<unsigned char>(100));
    store("userCustomColors", std::string("navy|#|red"));
    open("bytes/a");
    for (Qt::LayoutDirection const direction : {Qt::LeftToRight, Qt::RightToLeft}) {
        m_pane->setLayoutDirection(direction);
        for (std::shared_ptr<Setting const> const& setting : all()) {
            m_pane->show(setting);
            QCoreApplication::processEvents();
            for (QWidget* const widget : m_pane->findChildren<QWidget*>()) {
                bool const isButton = qobject_cast<QAbstractButton*>(widget);
                if (!widget->isVisible() || (!isButton && !qobject_cast<Inspector::Passage*>(widget)))
                    continue;
                std::string const what = setting->key + ": " + widget->accessibleName().toStdString();
                QRect const place(widget->mapTo(m_pane.get(), QPoint()), widget->size());
                EXPECT_TRUE(place.left() >= 0 && place.right() < m_pane->width()) << what;
                EXPECT_TRUE(!isButton || widget->width() >= widget->minimumSizeHint().width()) << what;
            }
        }
    }
}

} // namespace
