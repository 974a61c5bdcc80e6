#pragma once

#include "settings/SettingsServices.h"

#include <QWidget>

namespace quorvantel {

/// The content of the General section: nothing to set yet, and the way to the help.
class GeneralSettingsPane : public QWidget {
    Q_OBJECT

public:
    explicit GeneralSettingsPane(const SettingsServices& services, QWidget* parent = nullptr);
};

} // namespace quorvantel
