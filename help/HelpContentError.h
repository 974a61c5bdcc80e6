#pragma once

#include <QString>

#include <stdexcept>

namespace quorvantel::help {

/// Why an application has no help content.
class HelpContentError : public std::runtime_error {
public:
    enum class Kind { manifestNotFound, manifestUnreadable };

    static HelpContentError manifestNotFound(const QString& name);

    /// `reason` is a sentence about what is wrong with the manifest.
    static HelpContentError manifestUnreadable(const QString& name, const QString& reason);

    Kind kind() const { return m_kind; }

    /// A sentence that names the manifest.
    QString description() const { return m_description; }

private:
    HelpContentError(Kind kind, const QString& description);

    Kind m_kind;
    QString m_description;
};

} // namespace quorvantel::help
