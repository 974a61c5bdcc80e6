#pragma once

#include "platform/UserDefaults.h"

namespace quorvantel::platform {

/// The defaults of the application, as `NSUserDefaults` finds them: those of the user before those
/// of all applications. Writes go to the application's own domain.
///
/// A write waits until the preferences service has it, from whose hands no crash of the launcher
/// takes it.
class MacUserDefaults final : public UserDefaults {
public:
    std::optional<Value> value(const QString& key) const override;

    /// Setting `Other` does nothing.
    void setAll(const QMap<QString, Value>& values) override;

private:
    bool m_hasReportedFailure = false;
};

} // namespace quorvantel::platform
