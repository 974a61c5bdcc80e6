#include "catalogue/LaunchTarget.h"

#include <utility>

namespace quorvantel {

LaunchTarget::LaunchTarget(QString id, QString displayName, QStringList searchKeys,
                           platform::Image icon, Kind kind)
    : m_id(std::move(id)),
      m_displayName(std::move(displayName)),
      m_searchKeys(std::move(searchKeys)),
      m_icon(std::move(icon)),
      m_kind(std::move(kind)) {}

} // namespace quorvantel
