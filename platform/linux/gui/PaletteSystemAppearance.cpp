#include "platform/linux/gui/PaletteSystemAppearance.h"

#include <QEvent>
#include <QGuiApplication>
#include <QPalette>

#include <utility>

namespace quorvantel::platform {

namespace {

bool isPaletteDark() {
    const QPalette palette = QGuiApplication::palette();
    return palette.color(QPalette::Window).lightnessF() <
           palette.color(QPalette::WindowText).lightnessF();
}

} // namespace

PaletteSystemAppearance::PaletteSystemAppearance() : m_prefersDark(isPaletteDark()) {
    qApp->installEventFilter(this);
}

bool PaletteSystemAppearance::eventFilter(QObject* watched, QEvent* event) {
    if (watched == qApp && event->type() == QEvent::ApplicationPaletteChange) {
        const bool prefersDark = isPaletteDark();
        if (std::exchange(m_prefersDark, prefersDark) != prefersDark) {
            Q_EMIT changed();
        }
    }
    return SystemAppearance::eventFilter(watched, event);
}

} // namespace quorvantel::platform
