#include "catalogue/LaunchTarget.h"

#include <utility>

namespace quorvantel {

LaunchTarget::Data::Data(QString id, QString displayName, QStringList searchKeys,
                         platform::Image icon, Kind kind)
    : id(std::move(id)),
      displayName(std::move(displayName)),
      searchKeys(std::move(searchKeys)),
      icon(std::move(icon)),
      kind(std::move(kind)) {}

LaunchTarget::LaunchTarget(QString id, QString displayName, QStringList searchKeys,
                           platform::Image icon, Kind kind)
    : m_data(new Data(std::move(id), std::move(displayName), std::move(searchKeys), std::move(icon),
                      std::move(kind))) {}

} // namespace quorvantel
