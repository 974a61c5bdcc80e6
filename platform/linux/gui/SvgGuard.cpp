#include "platform/linux/gui/SvgGuard.h"

#include <QHash>
#include <QStringList>
#include <QXmlStreamReader>

#include <algorithm>
#include <utility>

namespace quorvantel::platform {

namespace {

constexpr int maximumElements = 5000;
constexpr qsizetype maximumDepth = 100;
constexpr int maximumUseDepth = 16;
constexpr QStringView dataScheme = u"data:";

/// What stands inside an element that others may use.
struct Definition {
    int elements = 0;
    QStringList uses;
};

class SvgScan {
public:
    explicit SvgScan(EmbeddedPictureCheck mayDecode) : m_mayDecode(std::move(mayDecode)) {}

    bool passes(const QByteArray& document) {
        QXmlStreamReader reader(document);
        while (!reader.atEnd()) {
            switch (reader.readNext()) {
            case QXmlStreamReader::ProcessingInstruction:
                if (reader.processingInstructionTarget() == u"xml-stylesheet") {
                    return false;
                }
                break;
            case QXmlStreamReader::StartElement:
                if (!enter(reader)) {
                    return false;
                }
                break;
            case QXmlStreamReader::EndElement:
                m_open.removeLast();
                break;
            default:
                break;
            }
        }
        int remaining = maximumElements;
        return !reader.hasError() && spend(QString(), 0, remaining);
    }

private:
    bool enter(const QXmlStreamReader& reader) {
        const QXmlStreamAttributes attributes = reader.attributes();
        // The whole document is the definition without a name.
        m_open.append(m_open.isEmpty() ? QString()
                                       : attributes.value(QStringLiteral("id")).toString());
        if (m_open.size() > maximumDepth) {
            return false;
        }
        const bool isLink = reader.name() == u"a";
        for (const QXmlStreamAttribute& attribute : attributes) {
            if (attribute.name() == u"href" && !isLink &&
                !mayRefer(reader.name(), attribute.value())) {
                return false;
            }
        }
        QStringList named = m_open;
        named.removeDuplicates();
        for (const QString& name : std::as_const(named)) {
            if (++m_definitions[name].elements > maximumElements) {
                return false;
            }
        }
        return true;
    }

    bool mayRefer(QStringView element, QStringView address) {
        const QStringView target = address.trimmed();
        if (element == u"image") {
            return isHarmlessPicture(target);
        }
        if (!target.startsWith(u'#')) {
            return target.isEmpty();
        }
        if (element == u"use") {
            QStringList named = m_open;
            named.removeDuplicates();
            for (const QString& name : std::as_const(named)) {
                m_definitions[name].uses.append(target.mid(1).toString());
            }
        }
        return true;
    }

    bool isHarmlessPicture(QStringView address) const {
        const qsizetype comma = address.indexOf(u',');
        return address.startsWith(dataScheme) && comma > 0 &&
               address.first(comma).endsWith(u";base64") &&
               m_mayDecode(QByteArray::fromBase64(address.mid(comma + 1).toLatin1()));
    }

    /// Takes the elements that one definition draws from those that may still be drawn.
    bool spend(const QString& name, int depth, int& remaining) const {
        const auto found = m_definitions.constFind(name);
        remaining -= found == m_definitions.cend() ? 1 : found->elements;
        if (remaining < 0 || depth > maximumUseDepth) {
            return false;
        }
        return found == m_definitions.cend() ||
               std::ranges::all_of(found->uses, [&](const QString& used) {
                   return spend(used, depth + 1, remaining);
               });
    }

    EmbeddedPictureCheck m_mayDecode;
    QStringList m_open;
    QHash<QString, Definition> m_definitions;
};

} // namespace

bool isHarmlessSvg(const QByteArray& document, const EmbeddedPictureCheck& mayDecode) {
    return SvgScan(mayDecode).passes(document);
}

} // namespace quorvantel::platform
