#pragma once

#include <QWindow>

namespace quorvantel::platform {

/// The panel's own window on X11, which is exactly as large as the panel. It shows a part of the
/// content's window, which is inside it.
class X11PanelFrame : public QWindow {
    Q_OBJECT

public:
    /// Takes the content's flags and title over, and the content's window as a child of the new
    /// one.
    explicit X11PanelFrame(QWindow& content);
    /// Leaves the content's window behind, hidden.
    ~X11PanelFrame() override;

    QAccessibleInterface* accessibleRoot() const override { return m_content.accessibleRoot(); }

Q_SIGNALS:
    /// The server has shown the window, so that its content is about to be drawn.
    void exposed();

    /// The window is about to be closed from outside. It stays as it is.
    void closing();

protected:
    bool event(QEvent* event) override;
    void closeEvent(QCloseEvent* event) override;
    void exposeEvent(QExposeEvent* event) override;

private:
    QWindow& m_content;
};

} // namespace quorvantel::platform
