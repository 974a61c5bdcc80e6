#pragma once

#include "drawing/IconCache.h"
#include "platform/Image.h"
#include "settings/SpringAnimation.h"
#include "settings/ThemedButton.h"

#include <QVariantAnimation>

namespace quorvantel {

/// A push button that looks like a toggle: filled with the accent colour while it is on. It behaves
/// as any other push button; whether it shows as on is for its owner to say.
class FCPToolbarButtonStyle : public ThemedButton {
    Q_OBJECT

public:
    /// What a button of this style shows at one moment.
    struct StyledLabel {
        struct Configuration {
            QString text;
            /// A template image; may be null.
            platform::Image symbol;
            /// From 0, up, to 1, pressed.
            double pressed;
        };

        Configuration configuration;
        /// From 0, off, to 1, on; a little beyond while it changes.
        double isOn;
        const ResolvedTheme& theme;
        IconCache& icons;

        void draw(QPainter& painter, const QRectF& frame) const;
    };

    /// `symbol` is drawn before the label and may be null. The references must outlive the button.
    FCPToolbarButtonStyle(const QString& label, platform::Image symbol, const ThemedRoot& theme,
                          IconCache& icons, QWidget* parent = nullptr);

    bool isOn() const { return m_isOn.target() > 0; }
    void setOn(bool isOn);

    QSize sizeHint() const override;

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    void animatePress();

    platform::Image m_symbol;
    IconCache& m_icons;
    SpringAnimation m_isOn;
    QVariantAnimation m_press;
};

} // namespace quorvantel
