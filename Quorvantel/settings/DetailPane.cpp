#include "settings/DetailPane.h"

#include <QVBoxLayout>

#include <algorithm>

namespace quorvantel {

namespace {

constexpr int padding = 32;
constexpr int spacing = 24;

} // namespace

DetailPane::DetailPane(QWidget* parent) : QWidget(parent), m_stack(new QVBoxLayout) {
    m_stack->setContentsMargins({});
    m_stack->setSpacing(spacing);
    auto* const layout = new QVBoxLayout(this);
    layout->setContentsMargins(padding, padding, padding, padding);
    layout->addLayout(m_stack);
    layout->addStretch(1);
}

QSize DetailPane::minimumSizeHint() const {
    // A layout asks for as little as one line of a text that could be broken into more.
    const QSize smallest = layout()->totalMinimumSize().expandedTo({minimumWidth, 0});
    return {smallest.width(), std::max(smallest.height(), heightForWidth(smallest.width()))};
}

void DetailPane::add(QWidget* widget) {
    m_stack->addWidget(widget);
}

void DetailPane::add(QLayout* section) {
    m_stack->addLayout(section);
}

} // namespace quorvantel
