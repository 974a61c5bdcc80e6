#include "catalogue/AppIndexer.h"
#include "platform/linux/DesktopEntryApplications.h"
#include "platform/linux/PropertyListBundleReader.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>

#include <benchmark/benchmark.h>

#include <stdexcept>

namespace quorvantel {
namespace {

// Locales into which a well-translated application is translated.
constexpr const char* locales[] = {
    "ar", "be", "bg", "bn", "ca", "cs", "cy", "da",    "de",    "el",    "en_GB", "eo", "es", "et",
    "eu", "fa", "fi", "fr", "ga", "gl", "gu", "he",    "hi",    "hr",    "hu",    "id", "is", "it",
    "ja", "ka", "kk", "km", "kn", "ko", "lt", "lv",    "mk",    "ml",    "mr",    "ms", "nb", "ne",
    "nl", "nn", "oc", "or", "pa", "pl", "pt", "pt_BR", "ro",    "ru",    "sk",    "sl", "sq", "sr",
    "sv", "ta", "te", "th", "tr", "ug", "uk", "vi",    "zh_CN", "zh_HK", "zh_TW"};

void addTranslations(QByteArray& text, const QByteArray& key, const QByteArray& value, int count) {
    text += key + '=' + value + '\n';
    for (int i = 0; i < count; ++i) {
        text += key + '[' + locales[i] + "]=" + value + " \xC3\xA4\xC3\xB6\xC3\xBC " + locales[i] +
                '\n';
    }
}

/// An entry of four to thirteen kibibytes.
QByteArray entryText(int number) {
    const int count = 20 + number % 48;
    QByteArray text = "[Desktop Entry]\nType=Application\nTerminal=false\n";
    addTranslations(text, "Name", "Application " + QByteArray::number(number), count);
    addTranslations(text, "GenericName", "Some Kind of Program", count);
    addTranslations(text, "Comment", "Does this and that with documents and pictures", count);
    addTranslations(text, "Keywords", "write;read;paper;office;print;", count);
    text += "Exec=program-" + QByteArray::number(number) + " %U\nIcon=program\n" +
            "Categories=Utility;GTK;\nStartupNotify=true\nMimeType=text/plain;image/png;\n" +
            "Actions=new-window;\n\n[Desktop Action new-window]\nExec=program --new\n";
    addTranslations(text, "Name", "New Window", count);
    return text;
}

void write(const QString& path, const QByteArray& content) {
    QFile file(path);
    if (!file.open(QIODevice::WriteOnly) || file.write(content) < 0 ||
        !file.setPermissions(file.permissions() | QFile::ExeOwner)) {
        throw std::runtime_error("cannot write the entries");
    }
}

/// Entries and their programs, which are in the second folder that is searched for them.
void writeEntries(const QString& folder, const QString& programs, int count) {
    QDir().mkpath(folder);
    QDir().mkpath(programs);
    for (int number = 0; number < count; ++number) {
        write(folder + QStringLiteral("/org.example.App%1.desktop").arg(number), entryText(number));
        write(programs + QStringLiteral("/program-%1").arg(number), {});
    }
    qputenv("PATH", "/usr/local/bin:" + QFile::encodeName(programs));
}

/// One scan as the launcher makes it whenever the panel is shown, with files that the system has in
/// memory already.
void scan(benchmark::State& state) {
    const auto count = static_cast<int>(state.range(0));
    const QTemporaryDir home;
    const QString folder = home.filePath(QStringLiteral("applications"));
    writeEntries(folder, home.filePath(QStringLiteral("bin")), count);
    const platform::DesktopEntryApplications installed({folder});
    const platform::PropertyListBundleReader bundles;
    const AppIndexer indexer(AppIndexer::standardRoots(home.path()), {}, bundles, installed);
    for (auto _ : state) {
        const auto targets = indexer.scan();
        if (targets.size() != static_cast<size_t>(count)) {
            state.SkipWithError("not all entries were listed");
        }
    }
}

BENCHMARK(scan)->Arg(200)->Arg(2000)->Unit(benchmark::kMillisecond);

} // namespace
} // namespace quorvantel

BENCHMARK_MAIN();
