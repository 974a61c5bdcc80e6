#include "settings/DetailPane.h"

#include <QVBoxLayout>

#include <algorithm>

namespace quorvantel {

namespace {

constexpr int padding = 32;
constexpr int spacing = 24;

} // namespace

DetailPane::DetailPane(QWidget* parent) : QWidget(parent), m_layout(new QVBoxLayout(this)) {
    m_layout->setContentsMargins(padding, padding, padding, padding);
    m_layout->setSpacing(spacing);
    m_layout->addStretch(1);
}

QSize DetailPane::minimumSizeHint() const {
    // A layout asks for as little as one line of a text that could be broken into more.
    const QSize smallest = layout()->totalMinimumSize().expandedTo({minimumWidth, 0});
    return {smallest.width(), std::max(smallest.height(), heightForWidth(smallest.width()))};
}

void DetailPane::add(QWidget* widget) {
    const int stretch = m_layout->count() - 1;
    m_layout->insertWidget(stretch, widget);
}

} // namespace quorvantel
