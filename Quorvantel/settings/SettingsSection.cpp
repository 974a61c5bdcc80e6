#include "settings/SettingsSection.h"

namespace quorvantel {

namespace {

struct Description {
    QStringView rawValue;
    QStringView title;
    QStringView symbolName;
};

const Description& describe(SettingsSection section) {
    static constexpr std::array descriptions{
        Description{u"general", u"General", u"gearshape"},
        Description{u"hotkey", u"Hotkey", u"keyboard"},
        Description{u"advanced", u"Advanced", u"slider.horizontal.3"},
        Description{u"appearance", u"Appearance", u"circle.lefthalf.filled"},
    };
    return descriptions[static_cast<std::size_t>(section)];
}

} // namespace

QString rawValue(SettingsSection section) {
    return describe(section).rawValue.toString();
}

QString title(SettingsSection section) {
    return describe(section).title.toString();
}

QString symbolName(SettingsSection section) {
    return describe(section).symbolName.toString();
}

} // namespace quorvantel
