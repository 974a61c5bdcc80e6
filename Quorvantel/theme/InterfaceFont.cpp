#include "theme/InterfaceFont.h"

namespace quorvantel {

QFont interfaceFont(int size, QFont::Weight weight) {
    QFont font;
    font.setPixelSize(size);
    font.setWeight(weight);
    return font;
}

} // namespace quorvantel
