#include "platform/linux/x11/X11WindowFrame.h"

#include "support/TestFiles.h"
#include "support/WaitUntil.h"
#include "support/XConnection.h"

#include <QFile>
#include <QTemporaryDir>
#include <QWindow>

#include <gtest/gtest.h>

namespace quorvantel::platform {
namespace {

TEST(X11WindowFrameTest, NamesTheVariantAndTheInstalledColoursUntilTheSystemDecidesAgain) {
    const QTemporaryDir data;
    const QString schemes = data.filePath(QStringLiteral("color-schemes"));
    testing::writeFile(schemes + QStringLiteral("/BreezeDark.colors"), {});
    qputenv("XDG_DATA_HOME", QFile::encodeName(data.path()));
    const testing::XConnection server;
    X11WindowFrame frame(X11Display::current().value());
    QWindow window;
    const auto hasText = [&](const QByteArray& name, const QByteArray& text) {
        return testing::waitUntil(
            [&] { return server.text(static_cast<xcb_window_t>(window.winId()), name) == text; });
    };
    const std::tuple<WindowFrame::Appearance, QByteArray, QByteArray> cases[] = {
        {WindowFrame::Appearance::Dark, "dark", QFile::encodeName(schemes) + "/BreezeDark.colors"},
        {WindowFrame::Appearance::Light, "light", {}},
        {WindowFrame::Appearance::System, {}, {}},
    };
    for (const auto& [appearance, variant, colors] : cases) {
        frame.setAppearance(window, appearance);
        EXPECT_TRUE(hasText("_GTK_THEME_VARIANT", variant));
        EXPECT_TRUE(hasText("_KDE_NET_WM_COLOR_SCHEME", colors));
    }
}

} // namespace
} // namespace quorvantel::platform
