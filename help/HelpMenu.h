#pragma once

#include "help/HelpBundle.h"
#include "help/HelpStyle.h"

#include <QObject>
#include <QString>

#include <functional>
#include <memory>

class QWindow;

namespace quorvantel::help {

class HelpWindow;

/// An application's help: one window, built when it is first asked for and kept from then on.
///
/// The application names a bundle and the manifest in it, and fills a style from its own theme. It
/// keeps this object for as long as it runs, and needs nothing else of the module. Nothing is read
/// before help is asked for, and nothing is ever written. Main thread only.
class HelpMenu : public QObject {
    Q_OBJECT

public:
    /// Brings a shown window, which may be minimised, to the front and gives it the keyboard.
    using Activate = std::function<void(QWindow&)>;

    /// `manifestName` is the manifest's file name in the bundle without its extension "json".
    /// Without an `activate` of the application's own, Qt asks the desktop, which may only draw the
    /// user's attention to a window on another virtual desktop.
    HelpMenu(HelpBundle bundle, QString manifestName, const HelpStyle& style,
             Activate activate = nullptr, QObject* parent = nullptr);
    ~HelpMenu() override;

    /// Shows the window, in front and with the keyboard focus, on the topic and at the size where
    /// the user left it. The first time it shows the first topic.
    void showHelp();

    /// The colours from now on. An open window changes in place: nothing scrolls and no selection
    /// is lost.
    void setStyle(const HelpStyle& style);

    /// The window; null before help was asked for.
    HelpWindow* window() const { return m_window.get(); }

private:
    HelpBundle m_bundle;
    QString m_manifestName;
    HelpStyle m_style;
    Activate m_activate;
    std::unique_ptr<HelpWindow> m_window;
};

} // namespace quorvantel::help
