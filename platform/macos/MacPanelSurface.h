#pragma once

#include "platform/PanelContent.h"
#include "platform/PanelSurface.h"
#include "platform/Screens.h"

#include <memory>

namespace quorvantel::platform {

/// The panel as a window of the system's own making (`QuorvantelPanelWindow`), in which the
/// toolkit's view draws and is typed into.
///
/// The toolkit regards its window as embedded in a foreign one. It leaves place, level and showing
/// to the surface, and learns from the system what concerns it: size, scale, exposure, keyboard.
class MacPanelSurface final : public PanelSurface {
    Q_OBJECT

public:
    /// `screens` must outlive the surface.
    MacPanelSurface(const PanelContent& content, const Screens& screens);
    ~MacPanelSurface() override;

    void setPlace(const PanelPlace& place) override;
    void show() override;
    void hide() override;
    bool isVisible() const override { return m_isVisible; }
    bool awaitsFirstFrame() const override { return m_awaitsFirstFrame; }
    /// Takes the panel off the screen: the system gives the keyboard back for nothing less.
    void releaseKeyboard() override;
    QPoint contentOrigin() const override { return {}; }
    void paintAround(QPainter& /*painter*/) override {}
    bool isComposited() const override { return true; }
    /// Where the user wants no translucency, the system draws the blur as a plain colour.
    bool offersBlur() const override { return true; }
    void setBlurBehind(bool isBlurred) override;
    QPointF position(const QMouseEvent& event) const override;
    std::optional<QPointF> mousePosition() const override;

    bool eventFilter(QObject* content, QEvent* event) override;

private:
    /// The Objective-C objects, which no header of plain C++ can hold.
    struct Native;

    void loseKeyboard();
    void frameDrawn();
    void endFirstFrame();

    QWindow& m_content;
    const Screens& m_screens;
    std::unique_ptr<Native> m_native;
    bool m_isVisible = false;
    bool m_awaitsFirstFrame = false;
    /// Has the keyboard since it was shown, and has neither given it back nor lost it.
    bool m_hasKeyboard = false;
    /// Whether the next frame may be of another outline than the window's shadow.
    bool m_isShadowStale = false;
};

} // namespace quorvantel::platform
