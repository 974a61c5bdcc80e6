#pragma once

#include "platform/PanelHost.h"

#include <QMouseEvent>
#include <QPainter>
#include <QWindow>

namespace quorvantel::testing {

/// A surface that is the content's own window, which may be larger than the panel. The panel is in
/// it where the test puts it, with something green around it.
class FakePanelSurface : public platform::PanelSurface {
public:
    /// `hasKeyboard` outlives the surface.
    FakePanelSurface(QWindow& window, bool& hasKeyboard)
        : m_window(window), m_hasKeyboard(hasKeyboard) {}
    ~FakePanelSurface() override { releaseKeyboard(); }

    void setPlace(const platform::PanelPlace& newPlace) override { place = newPlace; }
    void show() override {
        m_window.show();
        m_hasKeyboard = true;
    }
    void hide() override {
        releaseKeyboard();
        m_window.hide();
    }
    bool isVisible() const override { return m_window.isVisible(); }
    bool awaitsFirstFrame() const override { return false; }
    void releaseKeyboard() override { m_hasKeyboard = false; }
    QPoint contentOrigin() const override { return origin; }
    void paintAround(QPainter& painter) override {
        painter.fillRect(QRect(QPoint(), m_window.size()), Qt::green);
    }
    bool isComposited() const override { return true; }
    bool offersBlur() const override { return false; }
    void setBlurBehind(bool /*isBlurred*/) override {}
    QPointF position(const QMouseEvent& event) const override { return event.position(); }
    std::optional<QPointF> mousePosition() const override { return QPointF(); }

    /// Gives the content's window another size and the panel another place in it.
    void setOrigin(QPoint newOrigin, QSize windowSize) {
        origin = newOrigin;
        m_window.resize(windowSize);
        Q_EMIT geometryChanged();
    }

    platform::PanelPlace place;
    QPoint origin;

private:
    QWindow& m_window;
    bool& m_hasKeyboard;
};

/// Remembers the surface that it made last.
class FakePanelHost : public platform::PanelHost {
public:
    Qt::WindowFlags windowFlags() const override { return Qt::Tool | Qt::FramelessWindowHint; }
    std::unique_ptr<platform::PanelSurface>
    makeSurface(const platform::PanelContent& content) override {
        auto made = std::make_unique<FakePanelSurface>(content.window, hasKeyboard);
        surface = made.get();
        return made;
    }

    bool hasKeyboard = false;
    /// Dangles once the panel is gone.
    FakePanelSurface* surface = nullptr;
};

} // namespace quorvantel::testing
