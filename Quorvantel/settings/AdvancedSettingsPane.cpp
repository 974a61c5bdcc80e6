#include "settings/AdvancedSettingsPane.h"

#include "settings/PlainButton.h"
#include "settings/SettingsText.h"

#include <QGridLayout>
#include <QMessageBox>
#include <QPushButton>
#include <QVBoxLayout>

namespace quorvantel {

namespace {

constexpr int spacing = 12;
constexpr int questionWidth = 380;

/// A message box is as wide as its first line and takes no width from outside.
void widen(QMessageBox& box) {
    auto* const grid = qobject_cast<QGridLayout*>(box.layout());
    if (grid != nullptr) {
        grid->addItem(new QSpacerItem(questionWidth, 0), grid->rowCount(), 0, 1,
                      grid->columnCount());
    }
}

} // namespace

AdvancedSettingsPane::AdvancedSettingsPane(LearnedAbbreviationStore& learned,
                                           const SettingsServices& services, QWidget* parent)
    : QWidget(parent), m_learned(learned) {
    auto* const reset =
        new PlainButton(QStringLiteral("Reset learned abbreviations"), services.theme);
    connect(reset, &QPushButton::clicked, this, &AdvancedSettingsPane::askForConfirmation);

    auto* const layout = new QVBoxLayout(this);
    layout->setContentsMargins({});
    layout->setSpacing(spacing);
    layout->addWidget(
        new SettingsText(QStringLiteral("Quorvantel learns which result you pick for a given "
                                        "search and ranks it higher next time."),
                         SettingsText::Style::Body, services.theme));
    layout->addWidget(reset);
}

void AdvancedSettingsPane::askForConfirmation() {
    if (m_confirmation) {
        return;
    }
    const QString question = QStringLiteral("Reset learned abbreviations?");
    m_confirmation =
        new QMessageBox(QMessageBox::NoIcon, question, question, QMessageBox::NoButton, this);
    m_confirmation->setAttribute(Qt::WA_DeleteOnClose);
    // Otherwise a window of its own has the desktop's colours rather than the launcher's.
    m_confirmation->setAttribute(Qt::WA_WindowPropagation);
    m_confirmation->setInformativeText(QStringLiteral(
        "This cannot be undone. All learned search→result associations will be cleared."));
    const auto* const reset =
        m_confirmation->addButton(QStringLiteral("Reset"), QMessageBox::DestructiveRole);
    auto* const cancel =
        m_confirmation->addButton(QStringLiteral("Cancel"), QMessageBox::RejectRole);
    m_confirmation->setDefaultButton(cancel);
    connect(reset, &QPushButton::clicked, this, [this] { m_learned.reset(); });
    widen(*m_confirmation);
    m_confirmation->open();
}

} // namespace quorvantel
