#pragma once

#include <QString>
#include <QStringList>

#include <atspi/atspi.h>

#include <memory>
#include <optional>

namespace quorvantel::testing {

/// An object of another program as AT-SPI shows it to assistive technology. Every question is asked
/// of that program; of an object that is gone the answers are empty.
class AccessibleObject {
public:
    /// Takes the reference over.
    explicit AccessibleObject(AtspiAccessible* object) : m_object(object, &g_object_unref) {}

    /// As AT-SPI names it, such as "list item".
    QString role() const;
    QString name() const;
    QString description() const;

    /// As AT-SPI names them, such as "selected", in its order.
    QStringList states() const;
    bool has(const char* state) const { return states().contains(QLatin1String(state)); }

    int childCount() const;
    std::optional<AccessibleObject> child(int index) const;

    /// This object's place among its siblings, from 0.
    int indexInParent() const;

    /// The names of what the user can have it do, such as "Press".
    QStringList actions() const;

    /// Does the first of its actions, and says whether the program took that up.
    bool doAction() const;

private:
    std::shared_ptr<AtspiAccessible> m_object;
};

} // namespace quorvantel::testing
