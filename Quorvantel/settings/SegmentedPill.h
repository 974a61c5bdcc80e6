#pragma once

#include "settings/PillSegment.h"
#include "settings/SpringAnimation.h"
#include "theme/ThemedRoot.h"

#include <QStringList>
#include <QWidget>

#include <optional>
#include <vector>

namespace quorvantel {

/// A row of choices of which at most one is selected. A pill marks it, and slides on a spring to
/// the next.
///
/// The user selects with a click, with the arrow keys or with Space; to assistive technology the
/// choices are radio buttons.
class SegmentedPill : public QWidget {
    Q_OBJECT

public:
    /// Nothing is selected at first. `theme` must outlive the control.
    SegmentedPill(const QStringList& options, const ThemedRoot& theme, QWidget* parent = nullptr);

    std::optional<int> selection() const { return m_selection; }

    /// Selects a choice by its position, or none. Does not emit `selected`.
    void setSelection(std::optional<int> selection);

    /// Where the pill is drawn now; absent while nothing is selected.
    std::optional<QRectF> pillFrame() const;

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override { return sizeHint(); }

Q_SIGNALS:
    /// The user selected a choice.
    void selected(int index);

protected:
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;

private:
    void selectAsUser(int index);
    QRect segmentFrame(int index) const;
    void movePill(bool isAnimated);

    const ThemedRoot& m_theme;
    std::vector<PillSegment*> m_segments;
    std::optional<int> m_selection;
    SpringAnimation m_pillLeft;
    SpringAnimation m_pillWidth;
};

} // namespace quorvantel
