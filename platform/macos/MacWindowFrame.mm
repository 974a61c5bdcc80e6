#include "platform/macos/MacWindowFrame.h"

#include "platform/macos/NativeWindows.h"

namespace quorvantel::platform {

namespace {

/// Nil for that of the application, which is the user's choice.
NSAppearance* _Nullable nativeAppearance(WindowFrame::Appearance appearance) {
    switch (appearance) {
    case WindowFrame::Appearance::System:
        return nil;
    case WindowFrame::Appearance::Light:
        return [NSAppearance appearanceNamed:NSAppearanceNameAqua];
    case WindowFrame::Appearance::Dark:
        return [NSAppearance appearanceNamed:NSAppearanceNameDarkAqua];
    }
    Q_UNREACHABLE();
}

} // namespace

void MacWindowFrame::setAppearance(QWindow& window, Appearance appearance) {
    nativeWindow(window).appearance = nativeAppearance(appearance);
}

} // namespace quorvantel::platform
