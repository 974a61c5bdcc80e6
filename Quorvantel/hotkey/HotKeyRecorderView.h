#pragma once

#include "drawing/IconCache.h"
#include "hotkey/RecorderState.h"
#include "platform/KeyCapture.h"
#include "settings/ThemedRoot.h"
#include "shell/AppSettings.h"

#include <QPushButton>
#include <QVariantAnimation>

#include <memory>

namespace quorvantel {

/// The field that shows the summon hotkey and records another one: a click (or Space or Return)
/// starts the recording, the next key press ends it.
///
/// The keyboard is captured exactly while the field records. The recording also ends, without a
/// change, when the field is clicked again, loses the focus or disappears. A screen reader hears
/// what the field shows as its description. 240 × 34 points.
class HotKeyRecorderView : public QPushButton {
    Q_OBJECT

public:
    /// The references must outlive the view.
    HotKeyRecorderView(AppSettings& settings, platform::KeyCapture& keyCapture,
                       const ThemedRoot& theme, IconCache& icons, QWidget* parent = nullptr);

    const RecorderState& state() const { return m_state; }

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override { return sizeHint(); }

protected:
    void enterEvent(QEnterEvent* event) override;
    void leaveEvent(QEvent* event) override;
    void hideEvent(QHideEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;
    void paintEvent(QPaintEvent* event) override;

private:
    void setState(const RecorderState& state);
    void cancelRecording();
    platform::KeyCapture::Fate handlePress(const platform::KeyPress& press);
    QString shownText() const;
    void describeToAssistiveTechnology();
    void drawField(QPainter& painter) const;
    void drawIndicator(QPainter& painter) const;
    void drawGlyph(QPainter& painter);

    AppSettings& m_settings;
    platform::KeyCapture& m_keyCapture;
    const ThemedRoot& m_theme;
    IconCache& m_icons;
    RecorderState m_state = RecorderState::idle();
    /// Exists exactly while the view records, unless the system offers no capture.
    std::unique_ptr<platform::KeyCapture::Token> m_monitor;
    QVariantAnimation m_pulse;
    bool m_isHovering = false;
};

} // namespace quorvantel
