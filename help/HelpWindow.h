#pragma once

#include "help/HelpBrowser.h"
#include "help/HelpBundle.h"
#include "help/HelpContent.h"
#include "help/HelpContentError.h"
#include "help/HelpStyle.h"

#include <QMainWindow>
#include <QUrl>

#include <functional>
#include <variant>

namespace quorvantel::help {

/// The help window: a browser of the topics, or that there are none. Nothing is kept on disk, and
/// little in memory while it is closed.
class HelpWindow : public QMainWindow {
    Q_OBJECT

public:
    using Content = std::variant<HelpContent, HelpContentError>;

    /// Shows the first topic; where loading failed or there are no topics, that there is no help.
    HelpWindow(Content content, HelpBundle bundle, const HelpStyle& style,
               QWidget* parent = nullptr);

    /// Opens an http, https or mailto address in another application. At first that is the
    /// desktop's choice.
    std::function<void(const QUrl&)> onOpenUrl;

    /// The colours from now on; nothing scrolls and no selection is lost.
    void setStyle(const HelpStyle& style);

    /// Null when there are no topics.
    HelpBrowser* browser() const { return m_browser; }

protected:
    void closeEvent(QCloseEvent* event) override;
    void showEvent(QShowEvent* event) override;
    void paintEvent(QPaintEvent* event) override;

private:
    QWidget* makeBrowser(HelpContent content, HelpBundle bundle);
    QWidget* makeEmptyState();

    HelpStyle m_style;
    HelpBrowser* m_browser = nullptr;
    bool m_isResting = false;
};

} // namespace quorvantel::help
