#include "search/PreparedKey.h"

#include "search/BoundaryBonuses.h"
#include "search/LetterMask.h"
#include "text/TextFolding.h"

namespace quorvantel {

PreparedKey::PreparedKey(QStringView key)
    : m_letters(foldedScalars(key)),
      m_bonuses(boundaryBonuses(unicodeScalars(key), m_letters.size())),
      m_mask(letterMask(m_letters)) {}

} // namespace quorvantel
