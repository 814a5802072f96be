// SPDX-License-Identifier: MIT
#include <Inspector/Commits.h>

#include <Inspector/PlainText.h>

namespace Inspector {

QString Answer::whyNot() const
{
    switch (outcome) {
    case Outcome::stored:
    case Outcome::unchanged:
    case Outcome::compared:
    case Outcome::written:
        return {};
    case Outcome::conflict:
        return QString::fromStdString(Inspection::onOneLine(key) + " was changed by somebody else meanwhile");
    case Outcome::lookingOnly:
        return QStringLiteral("changes are not allowed");
    case Outcome::cancelled:
        return QStringLiteral("cancelled; nothing was changed");
    case Outcome::refused:
        return QString::fromStdString(reason);
    case Outcome::noBackup:
    case Outcome::failed:
        break;
    }
    return error ? plainText(error->what()) : QString();
}

Answer refused(std::string const& reason) { return {0, Outcome::refused, {}, {}, {}, {}, reason}; }

Answer failed(Storage::StorageError const& error) { return {0, Outcome::failed, {}, {}, {}, {}, {}, error}; }

} // namespace Inspector
