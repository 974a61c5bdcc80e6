#include "support/IsolatedHome.h"
#include "tools/gallery/HelpScenes.h"
#include "tools/gallery/PanelScenes.h"
#include "tools/gallery/Scene.h"
#include "tools/gallery/SettingsScenes.h"
#include "tools/gallery/SymbolScenes.h"

#include <QApplication>
#include <QCommandLineParser>
#include <QDir>
#include <QFont>
#include <QProcess>
#include <QTextStream>

#include <algorithm>
#include <cstdlib>

namespace quorvantel::gallery {
namespace {

/// The scale at which a process draws; set for the processes that draw, absent in the first one.
constexpr const char* scaleVariable = "QUORVANTEL_GALLERY_SCALE";

const QStringList& allScales() {
    static const QStringList scales{QStringLiteral("1"), QStringLiteral("1.5"),
                                    QStringLiteral("2")};
    return scales;
}

std::vector<Scene> allScenes() {
    std::vector<Scene> scenes = panelScenes();
    for (auto* const more : {&settingsScenes, &helpScenes, &symbolScenes}) {
        for (Scene& scene : more()) {
            scenes.push_back(std::move(scene));
        }
    }
    return scenes;
}

/// The first font that is installed counts for each script.
void useGalleryFonts() {
    QFont font;
    font.setFamilies({QStringLiteral("Inter"), QStringLiteral("Noto Sans Arabic UI"),
                      QStringLiteral("WenQuanYi Micro Hei"), QStringLiteral("DejaVu Sans")});
    QApplication::setFont(font);
}

int drawAll(const QString& directory, const QStringList& wanted, const QString& scale) {
    useGalleryFonts();
    // The caret does not blink, so that every run gives the same pictures.
    QApplication::setCursorFlashTime(0);
    for (const Scene& scene : allScenes()) {
        const bool isWanted = wanted.isEmpty() || wanted.contains(scene.name);
        if (!isWanted || (scene.scales == Scene::Scales::Sharp && scale != allScales().last())) {
            continue;
        }
        const QString file = QStringLiteral("%1/%2@%3x.png").arg(directory, scene.name, scale);
        // Quality 0 is the smallest file, without loss.
        if (!scene.draw().save(file, "PNG", 0)) {
            QTextStream(stderr) << "Cannot write " << file << '\n';
            return EXIT_FAILURE;
        }
        QTextStream(stdout) << file << '\n';
    }
    return EXIT_SUCCESS;
}

/// Qt takes its scale from the environment when it starts, hence a process for each.
int drawAtEachScale() {
    for (const QString& scale : allScales()) {
        QProcess process;
        auto environment = QProcessEnvironment::systemEnvironment();
        environment.insert(QStringLiteral("QT_SCALE_FACTOR"), scale);
        environment.insert(QString::fromLatin1(scaleVariable), scale);
        process.setProcessEnvironment(environment);
        process.setProcessChannelMode(QProcess::ForwardedChannels);
        process.start(QCoreApplication::applicationFilePath(),
                      QCoreApplication::arguments().sliced(1));
        if (!process.waitForFinished(-1) || process.exitStatus() != QProcess::NormalExit ||
            process.exitCode() != EXIT_SUCCESS) {
            return EXIT_FAILURE;
        }
    }
    return EXIT_SUCCESS;
}

void listScenes() {
    for (const Scene& scene : allScenes()) {
        QTextStream(stdout) << scene.name << '\n';
    }
}

int run(const QApplication& application) {
    QCommandLineParser parser;
    parser.setApplicationDescription(QStringLiteral("Draws pictures of the launcher's views."));
    parser.addHelpOption();
    const QCommandLineOption list(QStringLiteral("list"), QStringLiteral("Names the scenes."));
    parser.addOption(list);
    parser.addPositionalArgument(QStringLiteral("directory"), QStringLiteral("Where to."));
    parser.addPositionalArgument(QStringLiteral("scene"), QStringLiteral("All when none."),
                                 QStringLiteral("[scene...]"));
    parser.process(application);
    if (parser.isSet(list)) {
        listScenes();
        return EXIT_SUCCESS;
    }
    if (parser.positionalArguments().isEmpty()) {
        parser.showHelp(EXIT_FAILURE);
    }
    const QString directory = parser.positionalArguments().first();
    if (!QDir().mkpath(directory)) {
        QTextStream(stderr) << "Cannot make " << directory << '\n';
        return EXIT_FAILURE;
    }
    const QString scale = qEnvironmentVariable(scaleVariable);
    return scale.isEmpty() ? drawAtEachScale()
                           : drawAll(directory, parser.positionalArguments().sliced(1), scale);
}

} // namespace
} // namespace quorvantel::gallery

int main(int argc, char** argv) {
    const quorvantel::testing::IsolatedHome home;
    qputenv("QT_QPA_PLATFORM", "offscreen");
    const QApplication application(argc, argv);
    return quorvantel::gallery::run(application);
}
