#pragma once

#include <QProxyStyle>

namespace quorvantel::platform {

/// The desktop's own style, without its animations while `isStill`.
class StillStyle : public QProxyStyle {
public:
    bool isStill = false;

    int styleHint(StyleHint hint, const QStyleOption* option, const QWidget* widget,
                  QStyleHintReturn* returnData) const override {
        return isStill && hint == SH_Widget_Animation_Duration
                   ? 0
                   : QProxyStyle::styleHint(hint, option, widget, returnData);
    }
};

} // namespace quorvantel::platform
