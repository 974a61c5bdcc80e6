#pragma once

#include "theme/ThemedRoot.h"

#include <QRadioButton>

namespace quorvantel {

/// One choice of a `SegmentedPill`: draws its label only; the pill lies below it.
class PillSegment : public QRadioButton {
    Q_OBJECT

public:
    static constexpr double cornerRadius = 5;

    /// `theme` must outlive the segment.
    PillSegment(const QString& label, const ThemedRoot& theme, QWidget* parent = nullptr);

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override { return sizeHint(); }

protected:
    bool hitButton(const QPoint& point) const override;
    void paintEvent(QPaintEvent* event) override;

private:
    const ThemedRoot& m_theme;
};

} // namespace quorvantel
