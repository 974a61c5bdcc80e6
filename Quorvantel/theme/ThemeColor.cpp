#include "theme/ThemeColor.h"

#include <optional>

namespace quorvantel {

namespace {

std::optional<unsigned int> hexDigit(QChar character) {
    const char16_t code = character.unicode();
    if (code >= u'0' && code <= u'9') {
        return code - u'0';
    }
    if (code >= u'a' && code <= u'f') {
        return code - u'a' + 10U;
    }
    if (code >= u'A' && code <= u'F') {
        return code - u'A' + 10U;
    }
    return std::nullopt;
}

/// The number at the start of the text, of up to six digits; absent when there is none.
std::optional<unsigned int> scanHexadecimal(QStringView text) {
    while (!text.isEmpty() && text.front().isSpace()) {
        text = text.sliced(1);
    }
    const bool hasPrefix = text.startsWith(u"0x", Qt::CaseInsensitive);
    if (hasPrefix && text.size() > 2 && hexDigit(text[2])) {
        text = text.sliced(2);
    }
    std::optional<unsigned int> number;
    for (const QChar character : text) {
        const auto digit = hexDigit(character);
        if (!digit) {
            break;
        }
        number = number.value_or(0) * 16 + *digit;
    }
    return number;
}

} // namespace

QColor ThemeColor::toQColor() const {
    return QColor::fromRgbF(static_cast<float>(red), static_cast<float>(green),
                            static_cast<float>(blue), static_cast<float>(opacity));
}

ThemeColor colorFromHex(const QString& text) {
    QString digits = text.trimmed();
    if (digits.startsWith(u'#')) {
        digits.remove(0, 1);
    }
    if (digits.size() != 6) {
        return {};
    }
    const auto number = scanHexadecimal(digits);
    if (!number) {
        return {};
    }
    return ThemeColor::bytes(static_cast<int>((*number >> 16) & 0xFF),
                             static_cast<int>((*number >> 8) & 0xFF),
                             static_cast<int>(*number & 0xFF), 1);
}

} // namespace quorvantel
