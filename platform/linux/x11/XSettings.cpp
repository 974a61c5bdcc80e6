#include "platform/linux/x11/XSettings.h"

#include <QDataStream>
#include <QIODevice>

#include <algorithm>

namespace quorvantel::platform {

namespace {

enum class SettingType : quint8 { Integer = 0, Text = 1, Color = 2 };

/// As large a property as anybody could mean, in units of four bytes.
constexpr std::uint32_t maximumLength = 64 * 1024;

QByteArray paddedText(QDataStream& stream, quint32 length) {
    const auto available = static_cast<quint32>(stream.device()->bytesAvailable());
    QByteArray text(std::min(length, available), Qt::Uninitialized);
    stream.readRawData(text.data(), static_cast<int>(text.size()));
    stream.skipRawData(static_cast<int>((4 - length % 4) % 4));
    if (length > available) {
        stream.setStatus(QDataStream::ReadPastEnd);
    }
    return text;
}

/// The number of the screen with a root window.
int screenNumber(const X11Display& display) {
    int number = 0;
    for (auto screen = xcb_setup_roots_iterator(xcb_get_setup(display.connection)); screen.rem > 0;
         xcb_screen_next(&screen), ++number) {
        if (screen.data->root == display.root) {
            return number;
        }
    }
    return 0;
}

xcb_window_t settingsManager(const X11Display& display) {
    const QByteArray selection = "_XSETTINGS_S" + QByteArray::number(screenNumber(display));
    const XcbPointer<xcb_get_selection_owner_reply_t> owner(xcb_get_selection_owner_reply(
        display.connection,
        xcb_get_selection_owner(display.connection, display.atom(selection.constData())), nullptr));
    return owner ? owner->owner : xcb_window_t{XCB_NONE};
}

} // namespace

QString textSetting(const QByteArray& settings, const QByteArray& name) {
    constexpr int serialSize = 4;
    QDataStream stream(settings);
    quint8 byteOrder = 0;
    quint32 count = 0;
    stream >> byteOrder;
    stream.setByteOrder(byteOrder == 0 ? QDataStream::LittleEndian : QDataStream::BigEndian);
    stream.skipRawData(3 + serialSize);
    for (stream >> count; count > 0 && stream.status() == QDataStream::Ok; --count) {
        quint8 type = 0;
        quint8 padding = 0;
        quint16 nameLength = 0;
        stream >> type >> padding >> nameLength;
        const bool isWanted = paddedText(stream, nameLength) == name;
        stream.skipRawData(serialSize);
        if (type != static_cast<quint8>(SettingType::Text)) {
            stream.skipRawData(type == static_cast<quint8>(SettingType::Color) ? 8 : 4);
            continue;
        }
        quint32 length = 0;
        stream >> length;
        const QByteArray text = paddedText(stream, length);
        if (isWanted && stream.status() == QDataStream::Ok) {
            return QString::fromUtf8(text);
        }
    }
    return {};
}

QString desktopIconTheme(const X11Display& display) {
    const xcb_window_t manager = settingsManager(display);
    if (manager == XCB_NONE) {
        return {};
    }
    const xcb_atom_t property = display.atom("_XSETTINGS_SETTINGS");
    const XcbPointer<xcb_get_property_reply_t> reply(xcb_get_property_reply(
        display.connection,
        xcb_get_property(display.connection, 0, manager, property, property, 0, maximumLength),
        nullptr));
    if (!reply) {
        return {};
    }
    return textSetting(QByteArray(static_cast<const char*>(xcb_get_property_value(reply.get())),
                                  xcb_get_property_value_length(reply.get())),
                       "Net/IconThemeName");
}

} // namespace quorvantel::platform
