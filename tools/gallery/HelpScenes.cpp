#include "tools/gallery/HelpScenes.h"

#include "help/HelpMenu.h"
#include "shell/HelpStyle.h"

#include <QApplication>
#include <QLineEdit>

namespace quorvantel::gallery {

namespace {

QWidget* openWindow(help::HelpMenu& menu) {
    menu.showHelp();
    QCoreApplication::processEvents();
    return QApplication::activeWindow();
}

Scene scene(const QString& name, ColorScheme scheme, const QString& query) {
    const bool isDark = scheme == ColorScheme::Dark;
    const auto draw = [=] {
        help::HelpMenu menu(help::HelpBundle(QStringLiteral(":/help")), QStringLiteral("topics"),
                            helpStyleFor(resolve(scheme, ThemePreset::Graphite)));
        QWidget* const window = openWindow(menu);
        window->findChild<QLineEdit*>()->setText(query);
        QCoreApplication::processEvents();
        return window->grab().toImage();
    };
    return {name + (isDark ? QStringLiteral("-dark") : QStringLiteral("-light")), draw};
}

} // namespace

std::vector<Scene> helpScenes() {
    std::vector<Scene> scenes;
    for (const ColorScheme scheme : {ColorScheme::Light, ColorScheme::Dark}) {
        scenes.push_back(scene(QStringLiteral("help"), scheme, {}));
        scenes.push_back(scene(QStringLiteral("help-search"), scheme, QStringLiteral("history")));
    }
    return scenes;
}

} // namespace quorvantel::gallery
