#pragma once

#include "theme/ThemedRoot.h"

#include <QLabel>

namespace quorvantel {

/// A text of the settings window in the colours of the palette; breaks its lines where it must.
class SettingsText : public QLabel {
    Q_OBJECT

public:
    enum class Style {
        Heading, ///< 15 points, medium weight, primary colour.
        Body,    ///< 13 points, primary colour.
        Hint,    ///< 11 points, secondary colour.
        Warning, ///< 13 points, the colour of what is wrong; an alert to assistive technology.
    };

    /// `theme` must outlive the text.
    SettingsText(const QString& text, Style style, const ThemedRoot& theme,
                 QWidget* parent = nullptr);

    Style textStyle() const { return m_style; }

private:
    ThemeColor color() const;
    void applyTheme();

    Style m_style;
    const ThemedRoot& m_theme;
};

} // namespace quorvantel
