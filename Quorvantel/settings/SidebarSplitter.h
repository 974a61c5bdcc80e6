#pragma once

#include "theme/ThemedRoot.h"

#include <QSplitter>

namespace quorvantel {

/// A splitter whose handle is a hairline in the palette's separator colour.
class SidebarSplitter : public QSplitter {
    Q_OBJECT

public:
    /// `theme` must outlive the splitter.
    explicit SidebarSplitter(const ThemedRoot& theme, QWidget* parent = nullptr);

protected:
    QSplitterHandle* createHandle() override;

private:
    const ThemedRoot& m_theme;
};

} // namespace quorvantel
