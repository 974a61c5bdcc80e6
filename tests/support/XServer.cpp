#include "support/XServer.h"

namespace quorvantel::testing {

using namespace Qt::StringLiterals;

XServer::XServer(QSize pixels)
    : m_process({
          .program = u"Xvfb"_s,
          .arguments = {u"-displayfd"_s, u"1"_s, u"-screen"_s, u"0"_s,
                        u"%1x%2x24"_s.arg(pixels.width()).arg(pixels.height()), u"-dpi"_s, u"96"_s,
                        u"-noreset"_s, u"-nolisten"_s, u"tcp"_s},
          .announcesItself = true,
          // Given the chance, the server removes its lock file and its socket.
          .deathSignal = SIGTERM,
      }),
      m_display(":" + m_process.readLine()) {}

} // namespace quorvantel::testing
