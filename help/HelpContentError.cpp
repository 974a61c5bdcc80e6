#include "help/HelpContentError.h"

namespace quorvantel::help {

HelpContentError::HelpContentError(Kind kind, const QString& description)
    : std::runtime_error(description.toStdString()), m_kind(kind), m_description(description) {}

HelpContentError HelpContentError::manifestNotFound(const QString& name) {
    return {Kind::manifestNotFound, QStringLiteral("Help manifest '") + name +
                                        QStringLiteral("' was not found in the bundle.")};
}

HelpContentError HelpContentError::manifestUnreadable(const QString& name, const QString& reason) {
    return {Kind::manifestUnreadable, QStringLiteral("Help manifest '") + name +
                                          QStringLiteral("' could not be read: ") + reason};
}

} // namespace quorvantel::help
