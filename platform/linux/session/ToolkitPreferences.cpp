#include "platform/linux/session/ToolkitPreferences.h"

#include "platform/toolkit/StillStyle.h"

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

ToolkitPreferences::~ToolkitPreferences() {
    apply({});
}

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
    if (preferences.reducesMotion != m_applied.reducesMotion) {
        reduceMotion(preferences.reducesMotion);
    }
    m_applied = preferences;
}

void ToolkitPreferences::reduceMotion(bool isReduced) {
    if (m_stillStyle == nullptr) {
        m_stillStyle = new StillStyle;
        QApplication::setStyle(m_stillStyle);
    }
    m_stillStyle->isStill = isReduced;
}

} // namespace quorvantel::platform
