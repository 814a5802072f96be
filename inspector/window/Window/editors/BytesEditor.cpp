// SPDX-License-Identifier: MIT
#include <Window/editors/BytesEditor.h>

#include <Window/editors/Passage.h>

#include <Inspection/OneLine.h>
#include <Inspector/HexText.h>
#include <Inspector/WindowGeometry.h>

#include <QFileDialog>
#include <QFileInfo>
#include <QFontDatabase>
#include <QGuiApplication>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QSaveFile>
#include <QScreen>
#include <QVBoxLayout>

#include <algorithm>

namespace Inspector {

namespace {

constexpr int mostShown = 0x4000;
constexpr qint64 mostLoaded = 0x1000000;

bool isOutsideAllScreens(QRect const& frame)
{
    QList<QScreen*> const screens = QGuiApplication::screens();
    return std::none_of(screens.begin(), screens.end(), [&](QScreen const* screen) { return screen->geometry().intersects(frame); });
}

QString lookOf(QByteArray const& bytes)
{
    QString const look = recognised(bytes);
    std::optional<WindowGeometry> const window = windowGeometryIn(bytes);
    bool const isLost = window && isOutsideAllScreens(window->frame);
    QString const text = look.isEmpty() ? BytesEditor::tr("not recognised") : BytesEditor::tr("looks like ") + look;
    return BytesEditor::tr("%1 bytes, ").arg(bytes.size()) + text +
           (isLost ? BytesEditor::tr("\n\u26A0 wholly outside the screens that are connected") : QString());
}

} // namespace

BytesEditor::BytesEditor(QString const& name, bool mayReplace, QWidget* parent)
    : ValueEditor(parent),
      m_look(new Passage(tr("What the bytes look like"))),
      m_hex(new QPlainTextEdit),
      m_trouble(new Passage(tr("Trouble")))
{
    auto* const column = new QVBoxLayout(this);
    column->setContentsMargins({});
    column->addWidget(m_look);
    column->addWidget(m_hex);
    m_hex->setReadOnly(true);
    m_hex->setTabChangesFocus(true);
    m_hex->setLineWrapMode(QPlainTextEdit::NoWrap);
    m_hex->setLayoutDirection(Qt::LeftToRight);
    m_hex->setFont(QFontDatabase::systemFont(QFontDatabase::FixedFont));
    m_hex->setMinimumHeight(7 * m_hex->fontMetrics().lineSpacing());
    adopt(*m_hex, Storing::never, tr("Bytes of %1").arg(name));
    for (bool const isToSave : {true, false}) {
        auto* const button = new QPushButton(isToSave ? tr("Save as &file\u2026") : tr("&Load from file\u2026"));
        adopt(*button, Storing::never, isToSave ? tr("Save as file") : tr("Load from file"));
        connect(button, &QPushButton::clicked, this, [this, isToSave] { choose(isToSave); });
        column->addWidget(button, 0, Qt::AlignLeading);
        if (!isToSave && !mayReplace)
            button->hide();
    }
    column->addWidget(m_trouble);
    tellTrouble({});
}

void BytesEditor::setBytes(QByteArray const& bytes)
{
    m_bytes = bytes;
    m_look->tell(lookOf(bytes));
    m_hex->setPlainText(hexText(bytes, mostShown));
}

QStringList BytesEditor::words() const { return {QString::fromLatin1(m_bytes.toBase64())}; }

void BytesEditor::setWords(QStringList const& words) { setBytes(QByteArray::fromBase64(words.value(0).toLatin1())); }

QString BytesEditor::help() const { return tr("Loading a file stores it \u00B7 Esc goes back"); }

void BytesEditor::choose(bool isToSave)
{
    auto* const dialog = new QFileDialog(this, isToSave ? tr("Save as file") : tr("Load from file"));
    dialog->setAttribute(Qt::WA_DeleteOnClose);
    dialog->setAcceptMode(isToSave ? QFileDialog::AcceptSave : QFileDialog::AcceptOpen);
    dialog->setFileMode(isToSave ? QFileDialog::AnyFile : QFileDialog::ExistingFile);
    connect(dialog, &QFileDialog::fileSelected, this, isToSave ? &BytesEditor::save : &BytesEditor::load);
    dialog->show();
}

void BytesEditor::save(QString const& file)
{
    QSaveFile target(file);
    bool const isSaved = target.open(QIODevice::WriteOnly) && target.write(m_bytes) == m_bytes.size() && target.commit();
    tellTrouble(isSaved ? QString() : tr("cannot write %1: %2").arg(file, target.errorString()));
}

// A pipe would be waited for, and what has no end would fill the memory.
void BytesEditor::load(QString const& file)
{
    QFileInfo const info(file);
    if (!info.isFile() || info.size() > mostLoaded)
        return tellTrouble(tr("%1 is no file of at most 16 MiB; choose another one").arg(file));
    QFile source(file);
    if (!source.open(QIODevice::ReadOnly))
        return tellTrouble(tr("cannot read %1: %2").arg(file, source.errorString()));
    tellTrouble({});
    setBytes(source.read(mostLoaded));
    Q_EMIT entered();
}

void BytesEditor::tellTrouble(QString const& text)
{
    m_trouble->tell(QString::fromStdString(Inspection::onOneLine(text.toStdString())));
    m_trouble->setVisible(!text.isEmpty());
}

} // namespace Inspector
