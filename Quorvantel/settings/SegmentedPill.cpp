#include "settings/SegmentedPill.h"

#include "drawing/Motion.h"
#include "shapes/ContinuousCorners.h"

#include <QPainter>

#include <algorithm>

namespace quorvantel {

namespace {

constexpr double cornerRadius = 7;
constexpr int padding = 2;
constexpr Spring pillSpring{.response = 0.5, .dampingFraction = 0.85};
/// In points: less than this cannot be seen.
constexpr double tolerance = 0.05;

} // namespace

SegmentedPill::SegmentedPill(const QStringList& options, const ThemedRoot& theme, QWidget* parent)
    : QWidget(parent),
      m_theme(theme),
      m_pillLeft(pillSpring, tolerance),
      m_pillWidth(pillSpring, tolerance) {
    for (const QString& option : options) {
        auto* const segment = new PillSegment(option, theme, this);
        const int index = static_cast<int>(m_segments.size());
        connect(segment, &QRadioButton::clicked, this, [this, index] { selectAsUser(index); });
        m_segments.push_back(segment);
    }
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
    setSelection(std::nullopt);
    for (SpringAnimation* const animation : {&m_pillLeft, &m_pillWidth}) {
        connect(animation, &SpringAnimation::valueChanged, this, qOverload<>(&QWidget::update));
    }
    connect(&theme, &ThemedRoot::themeChanged, this, qOverload<>(&QWidget::update));
}

void SegmentedPill::selectAsUser(int index) {
    setSelection(index);
    Q_EMIT selected(index);
}

void SegmentedPill::setSelection(std::optional<int> selection) {
    const bool slides = m_selection && selection && isVisible() && isAnimated(*this);
    m_selection = selection;
    for (std::size_t index = 0; index < m_segments.size(); ++index) {
        // An exclusive button cannot be unchecked but by another one.
        PillSegment& segment = *m_segments[index];
        const bool isSelected = selection == static_cast<int>(index);
        segment.setAutoExclusive(false);
        segment.setChecked(isSelected);
        segment.setAutoExclusive(true);
        // The Tab key stops once, at the selected segment or else at the first.
        const bool isTabStop = isSelected || (!selection && index == 0);
        segment.setFocusPolicy(isTabStop ? Qt::StrongFocus : Qt::ClickFocus);
    }
    movePill(slides);
    update();
}

std::optional<QRectF> SegmentedPill::pillFrame() const {
    if (!m_selection) {
        return std::nullopt;
    }
    return QRectF(m_pillLeft.value(), padding, m_pillWidth.value(), height() - 2 * padding);
}

QSize SegmentedPill::sizeHint() const {
    QSize size(0, 0);
    for (const PillSegment* const segment : m_segments) {
        const QSize hint = segment->sizeHint();
        size = {size.width() + hint.width(), std::max(size.height(), hint.height())};
    }
    return size + QSize(2 * padding, 2 * padding);
}

void SegmentedPill::resizeEvent(QResizeEvent* /*event*/) {
    for (std::size_t index = 0; index < m_segments.size(); ++index) {
        m_segments[index]->setGeometry(segmentFrame(static_cast<int>(index)));
    }
    movePill(false);
}

QRect SegmentedPill::segmentFrame(int index) const {
    // Every segment has the room that its label needs, and an equal share of what is left.
    const int spare = width() - sizeHint().width();
    const int count = static_cast<int>(m_segments.size());
    int left = padding + spare * index / count;
    for (int before = 0; before < index; ++before) {
        left += m_segments[static_cast<std::size_t>(before)]->sizeHint().width();
    }
    const int share = spare * (index + 1) / count - spare * index / count;
    const int wanted = m_segments[static_cast<std::size_t>(index)]->sizeHint().width();
    return {left, padding, wanted + share, height() - 2 * padding};
}

void SegmentedPill::movePill(bool isAnimated) {
    if (!m_selection) {
        return;
    }
    const QRect frame = segmentFrame(*m_selection);
    if (isAnimated) {
        m_pillLeft.moveTo(frame.left());
        m_pillWidth.moveTo(frame.width());
    } else {
        m_pillLeft.jumpTo(frame.left());
        m_pillWidth.jumpTo(frame.width());
    }
}

void SegmentedPill::paintEvent(QPaintEvent* /*event*/) {
    const ResolvedTheme& theme = m_theme.theme();
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.fillPath(continuousRoundedRect(rect(), cornerRadius),
                     theme.elevatedBackground.toQColor());
    if (const auto pill = pillFrame()) {
        painter.fillPath(continuousRoundedRect(*pill, PillSegment::cornerRadius),
                         theme.accent.toQColor());
    }
}

} // namespace quorvantel
