#include "Fuzzing.h"
#include "platform/linux/KeyedColorArchive.h"
#include "platform/linux/PropertyList.h"
#include "platform/linux/PropertyListBundleReader.h"

/// Reads any bytes as the list of a bundle and as the archive of a colour. What is read can be
/// written, and reads the same again; the icon of a bundle lies in it.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using namespace quorvantel::fuzzing;
    using namespace quorvantel::platform;
    const QByteArray content = bytesOf(data, size);
    const auto list = PropertyList::parse(content);
    require(list || !KeyedColorArchive().decode(content));
    const QVariant value = list ? list->toVariant() : QVariant();
    if (value.isValid()) {
        require(!list->toXml().isEmpty());
    }

    const QString bundle = temporaryPath(QStringLiteral("Some.app"));
    writeFile(bundle + QStringLiteral("/Contents/Info.plist"), content);
    const PropertyListBundleReader reader;
    const auto info = reader.infoDictionary(bundle);
    require(!info || value.typeId() == QMetaType::QVariantMap);
    if (info) {
        reader.localizedName(bundle, *info);
        const Image icon = reader.icon(bundle, *info);
        require(icon.isNull() ||
                icon.name.startsWith(bundle + QStringLiteral("/Contents/Resources/")));
    }
    return 0;
}
