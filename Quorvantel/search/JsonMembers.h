#pragma once

#include <QByteArray>
#include <QHash>
#include <QString>

#include <optional>
#include <vector>

namespace quorvantel {

/// A text as a JSON string (RFC 8259), in UTF-8 with its quotation marks.
QByteArray jsonString(const QString& text);

/// A number as JSON, from which the same number is read again; nothing unless it is finite.
std::optional<QByteArray> jsonNumber(double number);

/// The text of a JSON object whose members change one at a time, in a file that is always written
/// whole: each member stays encoded, so a change costs the encoding of one and a copy of the rest.
class JsonMembers {
public:
    /// Sets or replaces a member; `value` is compact JSON, or nothing for one without a JSON form.
    void set(const QString& name, const std::optional<QByteArray>& value);

    void clear();

    /// The object, compact and in no order; nothing while a member has no JSON form.
    std::optional<QByteArray> text() const;

private:
    QHash<QString, size_t> m_positions;
    /// Names with their values; empty for a member without a JSON form.
    std::vector<QByteArray> m_members;
};

} // namespace quorvantel
