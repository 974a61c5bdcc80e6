#include "support/WaylandClient.h"

#include <QGuiApplication>
#include <QKeyEvent>
#include <QPainter>
#include <QRasterWindow>

#include <cstdio>

namespace {

/// A window that says what reaches it, a line for each.
class ReportingWindow : public QRasterWindow {
protected:
    void focusInEvent(QFocusEvent* /*event*/) override { report("active"); }
    void focusOutEvent(QFocusEvent* /*event*/) override { report("inactive"); }
    void mousePressEvent(QMouseEvent* /*event*/) override { report("click"); }
    void keyPressEvent(QKeyEvent* event) override { report("key " + event->text().toUtf8()); }

    void paintEvent(QPaintEvent* /*event*/) override {
        QPainter(this).fillRect(QRect(QPoint(), size()),
                                QColor(quorvantel::testing::WaylandClient::color));
    }

private:
    static void report(const QByteArray& line) {
        std::puts(line.constData());
        std::fflush(stdout);
    }
};

} // namespace

int main(int argc, char** argv) {
    const QGuiApplication application(argc, argv);
    ReportingWindow window;
    window.setTitle(QStringLiteral("Client"));
    window.resize(600, 400);
    window.show();
    return QGuiApplication::exec();
}
