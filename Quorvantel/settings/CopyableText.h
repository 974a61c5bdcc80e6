#pragma once

#include "theme/ThemedRoot.h"

#include <QLabel>
#include <QWidget>

namespace quorvantel {

class PlainButton;

/// Lines for a file or a command line, in a field of their own: they can be selected, and a button
/// below copies them all to the clipboard and says so.
class CopyableText : public QWidget {
    Q_OBJECT

public:
    /// `theme` must outlive the widget.
    explicit CopyableText(const ThemedRoot& theme, QWidget* parent = nullptr);

    QString text() const { return m_text->text(); }
    void setText(const QString& text);

protected:
    void hideEvent(QHideEvent* event) override;
    void paintEvent(QPaintEvent* event) override;

private:
    void applyTheme();
    void copy();

    const ThemedRoot& m_theme;
    QLabel* m_text;
    PlainButton* m_copy;
};

} // namespace quorvantel
