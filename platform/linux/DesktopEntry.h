#pragma once

#include "platform/Image.h"
#include "platform/linux/MainGroup.h"

#include <QByteArray>
#include <QString>
#include <QStringList>

#include <optional>
#include <utility>

namespace quorvantel::platform {

class ProgramSearch;

/// The main group of a desktop file, which is its first one (Desktop Entry Specification).
///
/// Texts that a file lacks, or that are not UTF-8, are empty. "In the user's language" is that of
/// the environment (LANGUAGE, LC_ALL, LC_MESSAGES, LANG), or no particular one where the file lacks
/// a translation.
class DesktopEntry {
public:
    /// `content` is that of the whole file. A file that is none reads as an entry without anything
    /// in it, and says so in `syntaxError`.
    explicit DesktopEntry(QByteArray content) : m_group(std::move(content)) {}

    /// What is wrong with the file's syntax, in words for a log line; empty when nothing is.
    const QString& syntaxError() const { return m_group.syntaxError(); }

    QString text(const char* key) const;

    /// The text in the user's language.
    QString localizedText(const char* key) const;

    QStringList texts(const char* key) const;

    /// The texts in the user's language.
    QStringList localizedTexts(const char* key) const;

    /// The program to execute and its arguments (Exec), field codes included; empty when there is
    /// none or its quoting is broken.
    const QStringList& command() const;

    bool flag(const char* key) const;

    /// Whether the entry was taken out of the menus, by its author or its user.
    bool isHidden() const;

    /// Whether a desktop shows the entry. `currentDesktops` is the list in XDG_CURRENT_DESKTOP,
    /// separated by colons.
    bool isShownIn(const QByteArray& currentDesktops) const;

    /// Whether the program is missing that the entry makes its condition (TryExec).
    bool lacksCondition(ProgramSearch& programs) const;

    /// Whether a program is missing without which the entry is of no use: its condition, or the one
    /// to execute, unless a message on the session bus takes the place of that.
    bool lacksProgram(ProgramSearch& programs) const;

    /// An image file, or a name in the icon theme; null when the entry names no icon.
    Image icon() const;

private:
    bool lists(const char* key, const QByteArray& desktop) const;

    MainGroup m_group;
    /// Absent until it is asked for.
    mutable std::optional<QStringList> m_command;
};

} // namespace quorvantel::platform
