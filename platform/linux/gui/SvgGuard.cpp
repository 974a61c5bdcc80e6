#include "platform/linux/gui/SvgGuard.h"

#include <QStringList>
#include <QXmlStreamReader>

#include <algorithm>
#include <map>
#include <utility>
#include <vector>

namespace quorvantel::platform {

namespace {

// Common icons cost some hundreds.
constexpr qsizetype maximumCost = 8000;
constexpr qsizetype coordinatesPerElement = 16;
constexpr qsizetype costOfPicture = 500;
/// Each may name another font, which is looked for.
constexpr qsizetype costOfText = 100;
/// Elements times characters of style sheets, all of whose rules are tried on all elements; common
/// icons have a thirtieth.
constexpr qsizetype maximumStyling = 1'000'000;
constexpr qsizetype maximumDepth = 100;
constexpr int maximumUseDepth = 16;
constexpr QStringView dataScheme = u"data:";

/// What stands inside an element that others may use.
struct Definition {
    qsizetype cost = 0;
    QStringList uses;
};

/// What it costs to draw an element; the texts of its coordinates count by their length.
qsizetype costOf(QStringView element, const QXmlStreamAttributes& attributes) {
    if (element == u"image") {
        return costOfPicture;
    }
    if (element == u"text" || element == u"tspan" || element == u"textArea") {
        return costOfText;
    }
    qsizetype coordinates = 0;
    for (const QXmlStreamAttribute& attribute : attributes) {
        if (attribute.name() == u"d" || attribute.name() == u"points") {
            coordinates += attribute.value().size();
        }
    }
    return 1 + coordinates / coordinatesPerElement;
}

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
            case QXmlStreamReader::Characters:
                m_styles += m_styleDepth > 0 ? reader.text().size() : 0;
                break;
            case QXmlStreamReader::EndElement:
                m_styleDepth = m_open.size() > m_styleDepth ? m_styleDepth : 0;
                m_open.removeLast();
                break;
            default:
                break;
            }
        }
        qsizetype remaining = maximumCost;
        return !reader.hasError() && m_elements * m_styles <= maximumStyling &&
               spend(QString(), 0, remaining);
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
        ++m_elements;
        if (m_styleDepth == 0 && reader.name() == u"style") {
            m_styleDepth = m_open.size();
        }
        const bool isLink = reader.name() == u"a";
        for (const QXmlStreamAttribute& attribute : attributes) {
            if (attribute.name() == u"href" && !isLink &&
                !mayRefer(reader.name(), attribute.value())) {
                return false;
            }
        }
        const qsizetype cost = costOf(reader.name(), attributes);
        for (Definition* const definition : openDefinitions()) {
            definition->cost += cost;
            if (definition->cost > maximumCost) {
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
            for (Definition* const definition : openDefinitions()) {
                definition->uses.append(target.mid(1).toString());
            }
        }
        return true;
    }

    /// Those that the current element is part of, each once.
    std::vector<Definition*> openDefinitions() {
        std::vector<Definition*> definitions;
        for (const QString& name : std::as_const(m_open)) {
            Definition* const definition = &m_definitions[name];
            if (std::ranges::find(definitions, definition) == definitions.end()) {
                definitions.push_back(definition);
            }
        }
        return definitions;
    }

    bool isHarmlessPicture(QStringView address) const {
        const qsizetype comma = address.indexOf(u',');
        return address.startsWith(dataScheme) && comma > 0 &&
               address.first(comma).endsWith(u";base64") &&
               m_mayDecode(QByteArray::fromBase64(address.mid(comma + 1).toLatin1()));
    }

    /// Takes the cost of one definition from what may still be drawn.
    bool spend(const QString& name, int depth, qsizetype& remaining) const {
        const auto found = m_definitions.find(name);
        if (found == m_definitions.end()) {
            return --remaining >= 0;
        }
        remaining -= found->second.cost;
        return remaining >= 0 && depth <= maximumUseDepth &&
               std::ranges::all_of(found->second.uses, [&](const QString& used) {
                   return spend(used, depth + 1, remaining);
               });
    }

    EmbeddedPictureCheck m_mayDecode;
    QStringList m_open;
    qsizetype m_elements = 0;
    /// Characters in style sheets, and how deep the one lies that is open; 0 when none is.
    qsizetype m_styles = 0;
    qsizetype m_styleDepth = 0;
    std::map<QString, Definition> m_definitions;
};

} // namespace

bool isHarmlessSvg(const QByteArray& document, const EmbeddedPictureCheck& mayDecode) {
    return SvgScan(mayDecode).passes(document);
}

} // namespace quorvantel::platform
