#include "Fuzzing.h"
#include "platform/linux/PropertyList.h"
#include "platform/linux/PropertyListDefaults.h"

#include <QFile>

/// Opens any bytes as the file of the defaults, sets a value and opens what was written: nothing
/// else has changed, and a file that held no defaults was set aside as it was.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using namespace quorvantel::fuzzing;
    using namespace quorvantel::platform;
    const QByteArray content = bytesOf(data, size);
    const QString path = temporaryPath(QStringLiteral("defaults.plist"));
    const QString damaged = path + QStringLiteral(".damaged");
    const QString key = QStringLiteral("preset");
    const UserDefaults::Value value = QStringLiteral("ink");
    QFile::remove(damaged);
    writeFile(path, content);

    PropertyListDefaults defaults(path);
    defaults.set(key, value);
    const PropertyListDefaults reopened(path);
    require(reopened.value(key) == value);
    const auto list = PropertyList::parse(content);
    if (!list || !list->isDictionary()) {
        require(readFile(damaged) == content);
        return 0;
    }
    for (const QString& known : list->toVariant().toMap().keys()) {
        require(reopened.value(known) == defaults.value(known));
    }
    return 0;
}
