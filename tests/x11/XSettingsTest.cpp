#include "platform/linux/x11/XSettings.h"

#include <QDataStream>
#include <QIODevice>

#include <gtest/gtest.h>

namespace quorvantel::platform {
namespace {

void writePadded(QDataStream& stream, const QByteArray& text) {
    stream.writeRawData(text.constData(), static_cast<int>(text.size()));
    stream.writeRawData("\0\0\0", static_cast<int>((4 - text.size() % 4) % 4));
}

void writeHead(QDataStream& stream, quint8 type, const QByteArray& name) {
    stream << type << quint8{0} << static_cast<quint16>(name.size());
    writePadded(stream, name);
    stream << quint32{7};
}

/// A number, a colour and two texts, as a settings manager of that byte order writes them.
QByteArray settings(QDataStream::ByteOrder order) {
    QByteArray bytes;
    QDataStream stream(&bytes, QIODevice::WriteOnly);
    stream.setByteOrder(order);
    stream << quint8{order == QDataStream::BigEndian} << quint8{0} << quint16{0} << quint32{9}
           << quint32{4};
    writeHead(stream, 0, "Net/DoubleClickTime");
    stream << quint32{400};
    writeHead(stream, 2, "Net/Color");
    stream << quint16{1} << quint16{2} << quint16{3} << quint16{4};
    for (const auto& [name, text] : {std::pair("Net/ThemeName", "Dark"),
                                     std::pair("Net/IconThemeName", "Papirus-Dunkelgrün")}) {
        writeHead(stream, 1, name);
        stream << static_cast<quint32>(qstrlen(text));
        writePadded(stream, text);
    }
    return bytes;
}

TEST(XSettingsTest, ATextIsFoundInEitherByteOrderAndNotInPartOfTheData) {
    const QString name = QStringLiteral("Papirus-Dunkelgrün");
    for (const auto order : {QDataStream::LittleEndian, QDataStream::BigEndian}) {
        const QByteArray whole = settings(order);
        EXPECT_EQ(textSetting(whole, "Net/IconThemeName"), name);
        EXPECT_EQ(textSetting(whole, "Net/ThemeName"), QStringLiteral("Dark"));
        EXPECT_EQ(textSetting(whole, "Net/DoubleClickTime"), QString());
        EXPECT_EQ(textSetting(whole, "Net/Absent"), QString());
        const qsizetype textEnd = whole.lastIndexOf('n') + 1;
        for (qsizetype length = 0; length < textEnd; ++length) {
            EXPECT_EQ(textSetting(whole.first(length), "Net/IconThemeName"), QString()) << length;
        }
    }
    EXPECT_EQ(textSetting(QByteArray(200, '\xFF'), "a"), QString());
}

TEST(XSettingsTest, TheIconThemeIsTheOneOfTheSettingsManagerThatRunsNow) {
    const X11Display display = *X11Display::current();
    EXPECT_EQ(desktopIconTheme(display), QString());
    const xcb_window_t manager = xcb_generate_id(display.connection);
    xcb_create_window(display.connection, 0, manager, display.root, 0, 0, 1, 1, 0,
                      XCB_WINDOW_CLASS_INPUT_ONLY, XCB_COPY_FROM_PARENT, 0, nullptr);
    const QByteArray bytes = settings(QDataStream::LittleEndian);
    const xcb_atom_t property = display.atom("_XSETTINGS_SETTINGS");
    xcb_change_property(display.connection, XCB_PROP_MODE_REPLACE, manager, property, property, 8,
                        static_cast<std::uint32_t>(bytes.size()), bytes.constData());
    xcb_set_selection_owner(display.connection, manager, display.atom("_XSETTINGS_S0"),
                            XCB_CURRENT_TIME);
    EXPECT_EQ(desktopIconTheme(display), QStringLiteral("Papirus-Dunkelgrün"));
    xcb_destroy_window(display.connection, manager);
    EXPECT_EQ(desktopIconTheme(display), QString());
}

} // namespace
} // namespace quorvantel::platform
