#pragma once

#include "platform/Image.h"
#include "platform/linux/GLibPointers.h"

#include <QByteArray>
#include <QString>
#include <QStringList>

namespace quorvantel::platform {

/// The main group of a desktop file, which is its first one (Desktop Entry Specification).
///
/// Texts that a file lacks, or that are not UTF-8, are empty. "In the user's language" is that of
/// the environment (LANGUAGE, LC_ALL, LC_MESSAGES, LANG), or no particular one where the file lacks
/// a translation.
class DesktopEntry {
public:
    /// How much of a file is read: what the catalogue lists, or only the icon with the keys Hidden
    /// and TryExec, which takes a third of the time.
    enum class Part { All, Icon };

    /// `content` is that of the whole file. A file that is none reads as an entry without anything
    /// in it, and says so in `syntaxError`.
    explicit DesktopEntry(const QByteArray& content, Part wanted = Part::All);

    /// What is wrong with the file's syntax, in words for a log line; empty when nothing is.
    const QString& syntaxError() const { return m_syntaxError; }

    QString text(const char* key) const;

    /// The text in the user's language.
    QString localizedText(const char* key) const;

    QStringList texts(const char* key) const;

    /// The texts in the user's language.
    QStringList localizedTexts(const char* key) const;

    /// The program to execute and its arguments (Exec), field codes included; empty when there is
    /// none or its quoting is broken.
    const QStringList& command() const { return m_command; }

    bool flag(const char* key) const;

    /// Whether the entry was taken out of the menus, by its author or its user.
    bool isHidden() const;

    /// Whether a desktop shows the entry. `currentDesktops` is the list in XDG_CURRENT_DESKTOP,
    /// separated by colons.
    bool isShownIn(const QByteArray& currentDesktops) const;

    /// Whether a program is missing without which the entry is of no use: the one that it makes its
    /// condition (TryExec), or the one to execute, unless a message on the session bus takes the
    /// place of that.
    bool lacksProgram() const;

    /// An image file, or a name in the icon theme; null when the entry names no icon.
    Image icon() const;

private:
    bool has(const char* key) const;
    QByteArray localizedKey(const char* key) const;
    bool lists(const char* key, const QByteArray& desktop) const;

    GKeyFilePointer m_file;
    QString m_syntaxError;
    QStringList m_command;
};

} // namespace quorvantel::platform
