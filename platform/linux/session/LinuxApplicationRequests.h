#pragma once

#include "platform/ApplicationRequests.h"
#include "platform/linux/CallerActivation.h"
#include "platform/linux/FurtherStarts.h"
#include "platform/linux/portal/ApplicationService.h"
#include "platform/linux/session/StartContext.h"

namespace quorvantel::platform {

/// What further starts of the program and the session bus bring, and the user's deed that started
/// this process, if there was one.
///
/// There is one launcher for all displays of a user, whose files it keeps. A start on another
/// display is refused: a panel that appears elsewhere is of no use to whoever sits at that one.
class LinuxApplicationRequests : public ApplicationRequests {
public:
    /// `activation` must outlive this object.
    LinuxApplicationRequests(StartContext& start, CallerActivation& activation);

    void receive(Handler handler) override;

private:
    QString admit(const StartRequest& request);
    void hand(ApplicationRequest request, const CallerToken& token);

    CallerActivation& m_activation;
    StartRequest m_ownStart;
    FurtherStarts m_starts;
    ApplicationService m_service;
    Handler m_handler;
};

} // namespace quorvantel::platform
