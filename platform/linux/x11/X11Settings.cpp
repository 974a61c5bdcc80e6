#include "platform/linux/x11/X11Settings.h"

#include <QDataStream>
#include <QIODevice>

#include <algorithm>
#include <utility>

namespace quorvantel::platform {

namespace {

enum class SettingType : quint8 { Number = 0, Text = 1, Color = 2 };

/// As large a property as anybody could mean, in units of four bytes.
constexpr std::uint32_t maximumLength = 64 * 1024;

constexpr int colorSize = 8;

/// Texts are filled up to a whole number of four bytes.
QByteArray readText(QDataStream& stream, quint32 length) {
    if (length > stream.device()->bytesAvailable()) {
        stream.setStatus(QDataStream::ReadPastEnd);
        return {};
    }
    QByteArray text(length, Qt::Uninitialized);
    stream.readRawData(text.data(), static_cast<int>(length));
    stream.skipRawData(static_cast<int>((4 - length % 4) % 4));
    return text;
}

/// Invalid for a colour.
QVariant readValue(QDataStream& stream, quint8 type) {
    switch (static_cast<SettingType>(type)) {
    case SettingType::Number: {
        qint32 number = 0;
        stream >> number;
        return number;
    }
    case SettingType::Text: {
        quint32 length = 0;
        stream >> length;
        return QString::fromUtf8(readText(stream, length));
    }
    case SettingType::Color:
        stream.skipRawData(colorSize);
        return {};
    }
    stream.setStatus(QDataStream::ReadCorruptData);
    return {};
}

} // namespace

XSettingsValues parseXSettings(const QByteArray& data) {
    XSettingsValues values;
    QDataStream stream(data);
    quint8 isBigEndian = 0;
    stream >> isBigEndian;
    stream.setByteOrder(isBigEndian == 0 ? QDataStream::LittleEndian : QDataStream::BigEndian);
    constexpr int headPadding = 3;
    constexpr int serialSize = 4;
    stream.skipRawData(headPadding + serialSize);
    quint32 count = 0;
    for (stream >> count; count > 0; --count) {
        quint8 type = 0;
        quint8 padding = 0;
        quint16 nameLength = 0;
        stream >> type >> padding >> nameLength;
        const QByteArray name = readText(stream, nameLength);
        stream.skipRawData(serialSize);
        const QVariant value = readValue(stream, type);
        if (stream.status() != QDataStream::Ok) {
            break;
        }
        if (value.isValid()) {
            values.insert(name, value);
        }
    }
    return values;
}

X11Settings::X11Settings(const X11Display& display, X11EventDispatcher& events)
    : X11EventHandler(events, X11EventRank::Observer),
      m_display(display),
      m_managerSelection(display, "_XSETTINGS_S0"),
      m_settings(display.atom("_XSETTINGS_SETTINGS")) {
    followManager(m_managerSelection.owner());
    m_values = read();
}

bool X11Settings::handleEvent(const xcb_generic_event_t& event) {
    if (typeOf(event) == XCB_PROPERTY_NOTIFY) {
        const auto& property = eventAs<xcb_property_notify_event_t>(event);
        if (property.window == m_manager && property.atom == m_settings) {
            setValues(read());
        }
    } else if (const auto manager = m_managerSelection.newOwner(event)) {
        followManager(*manager);
        setValues(read());
    }
    return false;
}

void X11Settings::followManager(xcb_window_t manager) {
    m_manager = manager;
    if (manager == XCB_WINDOW_NONE) {
        return;
    }
    // The toolkit follows the same window over this connection, which has but one choice of events
    // for it. The window may be gone by now, which is no error worth a line.
    const std::uint32_t events = XCB_EVENT_MASK_STRUCTURE_NOTIFY | XCB_EVENT_MASK_PROPERTY_CHANGE;
    xcb_discard_reply(m_display.connection,
                      xcb_change_window_attributes_checked(m_display.connection, manager,
                                                           XCB_CW_EVENT_MASK, &events)
                          .sequence);
}

void X11Settings::setValues(const XSettingsValues& values) {
    if (std::exchange(m_values, values) != values) {
        Q_EMIT changed();
    }
}

XSettingsValues X11Settings::read() const {
    if (m_manager == XCB_WINDOW_NONE) {
        return {};
    }
    const XcbPointer<xcb_get_property_reply_t> reply(
        xcb_get_property_reply(m_display.connection,
                               xcb_get_property(m_display.connection, 0, m_manager, m_settings,
                                                m_settings, 0, maximumLength),
                               nullptr));
    if (!reply) {
        return {};
    }
    return parseXSettings(QByteArray(static_cast<const char*>(xcb_get_property_value(reply.get())),
                                     xcb_get_property_value_length(reply.get())));
}

} // namespace quorvantel::platform
