#include "catalogue/LaunchTarget.h"

#include <QSet>

#include <gtest/gtest.h>

namespace quorvantel {
namespace {

LaunchTarget application(const QString& id, const QString& name) {
    return {id, name, {name}, {}, LaunchTarget::App{QUrl(), id}};
}

TEST(LaunchTargetTest, IsIdentifiedByItsIdAlone) {
    const LaunchTarget old =
        application(QStringLiteral("org.example.Editor"), QStringLiteral("Editor"));
    const LaunchTarget renamed(QStringLiteral("org.example.Editor"), QStringLiteral("Text Editor"),
                               {}, platform::Image::symbol(QStringLiteral("gearshape"), {}),
                               LaunchTarget::SettingsPane{});
    const LaunchTarget other =
        application(QStringLiteral("org.example.Editor2"), QStringLiteral("Editor"));

    EXPECT_EQ(old, renamed);
    EXPECT_NE(old, other);
    EXPECT_EQ((QSet<LaunchTarget>{old, renamed, other}.size()), 2);
}

} // namespace
} // namespace quorvantel
