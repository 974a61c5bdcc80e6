#include "tools/gallery/PanelStage.h"

#include "panel/LauncherLayout.h"
#include "panel/PanelPlacement.h"
#include "tools/gallery/Backdrop.h"

#include <QCoreApplication>
#include <QKeyEvent>
#include <QMouseEvent>

#include <utility>

namespace quorvantel::gallery {

namespace {

constexpr int panelWidth = static_cast<int>(PanelPlacement::width);

} // namespace

PanelStage::PanelStage(const Look& look, std::vector<LaunchTarget> targets)
    : m_look(look),
      m_manager(m_defaults),
      m_theme(m_manager, m_appearance),
      m_frecency(m_directory.path()),
      m_engine(m_frecency, nullptr),
      m_icons(m_loader),
      m_view(m_engine, m_theme, m_icons) {
    m_manager.setAppearance(look.scheme == ColorScheme::Light ? ThemeManager::Appearance::Light
                                                              : ThemeManager::Appearance::Dark);
    m_manager.setPreset(look.preset);
    m_engine.setTargets(std::move(targets));
    m_view.setAttribute(Qt::WA_TranslucentBackground);
    m_view.resize(panelWidth, LauncherLayout::neededHeight(0, false));
    m_view.onHeightChange = [this](double height) { m_view.resize(panelWidth, qRound(height)); };
    m_view.setBlurAvailable(true);
    // It rests.
    m_view.mousePosition = [] { return QPointF(); };
    m_view.setOnSettings([] {});
    m_view.show();
    m_view.activateWindow();
    m_view.focusSearchField();
    settle();
}

void PanelStage::launchOften(const QString& identifier) {
    for (int launch = 0; launch < 8; ++launch) {
        m_frecency.record(identifier, currentReferenceDate());
    }
}

void PanelStage::search(const QString& query) {
    m_engine.setQuery(query);
    settle();
}

void PanelStage::moveDown(int rows) {
    for (int row = 0; row < rows; ++row) {
        QKeyEvent press(QEvent::KeyPress, Qt::Key_Down, Qt::NoModifier);
        QCoreApplication::sendEvent(m_view.focusProxy(), &press);
    }
    settle();
}

void PanelStage::hover(int row) {
    auto* const list = m_view.findChild<ResultListView*>();
    const QPointF point(list->width() / 2.0,
                        LauncherLayout::rowTop(row) + LauncherLayout::rowHeight / 2.0);
    QMouseEvent move(QEvent::MouseMove, point, list->mapToGlobal(point), Qt::NoButton, Qt::NoButton,
                     Qt::NoModifier);
    QCoreApplication::sendEvent(list, &move);
}

void PanelStage::hoverSettings() {
    m_view.findChild<SettingsButton*>()->setAttribute(Qt::WA_UnderMouse);
}

QImage PanelStage::panel() {
    // The first drawing asks for the icons.
    pictureOf(m_view);
    settle();
    return pictureOf(m_view);
}

QImage PanelStage::onDesktop() {
    return onBackdrop(panel(), LauncherLayout::cornerRadius, m_look.scheme);
}

void PanelStage::settle() {
    bool isDecoding = true;
    const auto connection =
        QObject::connect(&m_icons, &IconCache::decoded, [&isDecoding] { isDecoding = true; });
    while (std::exchange(isDecoding, false)) {
        QCoreApplication::processEvents();
    }
    QObject::disconnect(connection);
}

} // namespace quorvantel::gallery
