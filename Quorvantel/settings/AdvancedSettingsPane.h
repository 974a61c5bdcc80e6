#pragma once

#include "search/LearnedAbbreviationStore.h"
#include "settings/SettingsServices.h"

#include <QPointer>
#include <QWidget>

class QMessageBox;

namespace quorvantel {

/// The content of the Advanced section: forgetting what was learned, after a question.
class AdvancedSettingsPane : public QWidget {
    Q_OBJECT

public:
    /// `learned` must outlive the pane.
    AdvancedSettingsPane(LearnedAbbreviationStore& learned, const SettingsServices& services,
                         QWidget* parent = nullptr);

private:
    void askForConfirmation();

    LearnedAbbreviationStore& m_learned;
    /// The question, while it is asked.
    QPointer<QMessageBox> m_confirmation;
};

} // namespace quorvantel
