#include "settings/SidebarSplitter.h"

#include <QPainter>

namespace quorvantel {

namespace {

class Hairline : public QSplitterHandle {
public:
    Hairline(const ThemedRoot& theme, QSplitter* splitter)
        : QSplitterHandle(Qt::Horizontal, splitter), m_theme(theme) {
        connect(&theme, &ThemedRoot::themeChanged, this, qOverload<>(&QWidget::update));
    }

protected:
    void paintEvent(QPaintEvent* /*event*/) override {
        QPainter painter(this);
        painter.fillRect(rect(), m_theme.theme().primaryBackground.toQColor());
        painter.fillRect(rect(), m_theme.theme().separator.toQColor());
    }

private:
    const ThemedRoot& m_theme;
};

} // namespace

SidebarSplitter::SidebarSplitter(const ThemedRoot& theme, QWidget* parent)
    : QSplitter(Qt::Horizontal, parent), m_theme(theme) {
    setHandleWidth(1);
    setChildrenCollapsible(false);
}

QSplitterHandle* SidebarSplitter::createHandle() {
    auto* const handle = new Hairline(m_theme, this);
    handle->setAccessibleName(QStringLiteral("Width of the sections"));
    return handle;
}

} // namespace quorvantel
