#include "platform/linux/session/ToolkitPreferences.h"

#include <QApplication>

namespace quorvantel::platform {

namespace {

QFont fontFor(const DesktopFont& desktopFont) {
    QFont font;
    font.setFamilies(desktopFont.families);
    font.setPointSizeF(desktopFont.points);
    return font;
}

} // namespace

ToolkitPreferences::ToolkitPreferences()
    : m_ownFont(QApplication::font()),
      m_ownDoubleClickTime(QApplication::doubleClickInterval()),
      m_ownCursorBlinkTime(QApplication::cursorFlashTime()) {}

void ToolkitPreferences::apply(const DesktopPreferences& preferences) {
    if (preferences.font != m_applied.font) {
        QApplication::setFont(preferences.font ? fontFor(*preferences.font) : m_ownFont);
    }
    if (preferences.doubleClickTime != m_applied.doubleClickTime) {
        QApplication::setDoubleClickInterval(
            preferences.doubleClickTime.value_or(m_ownDoubleClickTime));
    }
    if (preferences.cursorBlinkTime != m_applied.cursorBlinkTime) {
        QApplication::setCursorFlashTime(
            preferences.cursorBlinkTime.value_or(m_ownCursorBlinkTime));
    }
    m_applied = preferences;
}

} // namespace quorvantel::platform
