#pragma once

#include <QWidget>

class QVBoxLayout;

namespace quorvantel {

/// The detail area of the settings window: a stack of headings and controls at the top and the
/// leading edge. Never too small for its texts, whatever the font.
class DetailPane : public QWidget {
    Q_OBJECT

public:
    /// The width, in points, that a pane can be narrowed to.
    static constexpr int minimumWidth = 380;

    explicit DetailPane(QWidget* parent = nullptr);

    QSize minimumSizeHint() const override;

protected:
    /// Puts something below all that is there, and takes ownership of it.
    void add(QWidget* widget);

private:
    QVBoxLayout* m_layout;
};

} // namespace quorvantel
