#pragma once

#include "drawing/IconCache.h"
#include "hotkey/HotKeyService.h"
#include "hotkey/RecorderState.h"
#include "platform/KeyCapture.h"
#include "preferences/AppSettings.h"
#include "settings/ThemedButton.h"
#include "theme/ThemedRoot.h"

#include <QVariantAnimation>

#include <memory>

namespace quorvantel {

/// The field that shows the summon hotkey and records another one: a click (or Space or Return)
/// starts the recording, the next key press ends it.
///
/// The keyboard is captured, and the hotkey suspended, exactly while the field records. The
/// recording also ends, without a change, when the field is clicked again, loses the focus or
/// disappears; why a combination was refused is shown until the next click or until the field
/// disappears. A screen reader hears what the field shows as its description. 240 × 34 points.
class HotKeyRecorderView : public ThemedButton {
    Q_OBJECT

public:
    /// The references must outlive the view.
    HotKeyRecorderView(AppSettings& settings, HotKeyService& hotKey,
                       platform::KeyCapture& keyCapture, const ThemedRoot& theme, IconCache& icons,
                       QWidget* parent = nullptr);

    const RecorderState& state() const { return m_state; }

    /// Shows the hotkey, whatever the field was recording or refusing.
    void showHotKey() { setState(RecorderState::idle()); }

    /// What a screen reader is to say beside what the field shows, such as that the hotkey does not
    /// work; empty for nothing.
    void setRemark(const QString& remark);

    QSize sizeHint() const override;

Q_SIGNALS:
    /// The combination that is the hotkey already was recorded once more.
    void recordedAgain();

protected:
    void enterEvent(QEnterEvent* event) override;
    void leaveEvent(QEvent* event) override;
    void hideEvent(QHideEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;
    void paintEvent(QPaintEvent* event) override;

private:
    void setState(const RecorderState& state);
    void startRecording();
    void cancelRecording();
    platform::KeyCapture::Fate handlePress(const platform::KeyPress& press);
    QString shownText() const;
    void describeToAssistiveTechnology();
    QString glyphName() const;
    void drawField(QPainter& painter) const;
    void drawIndicator(QPainter& painter) const;
    void drawGlyph(QPainter& painter);

    AppSettings& m_settings;
    HotKeyService& m_hotKey;
    platform::KeyCapture& m_keyCapture;
    IconCache& m_icons;
    QString m_remark;
    RecorderState m_state = RecorderState::idle();
    /// Exists exactly while the view records.
    std::unique_ptr<HotKeyService::Suspension> m_suspension;
    /// Likewise, unless the system offers no capture.
    std::unique_ptr<platform::KeyCapture::Token> m_monitor;
    QVariantAnimation m_pulse{this};
    bool m_isHovering = false;
};

} // namespace quorvantel
