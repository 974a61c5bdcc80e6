#include "help/TopicPageAccessible.h"

#include "help/PictureAccessible.h"

#include <algorithm>

namespace quorvantel::help {

namespace {

QAccessibleInterface* makeInterface(const QString& /*className*/, QObject* object) {
    auto* const view = qobject_cast<TopicView*>(object->parent());
    return view != nullptr && view->viewport() == object ? new TopicPageAccessible(*view) : nullptr;
}

/// The pictures in a document, each selected.
std::vector<QTextCursor> picturesIn(QTextDocument& document) {
    std::vector<QTextCursor> pictures;
    const QString object(QChar::ObjectReplacementCharacter);
    for (QTextCursor found = document.find(object); !found.isNull();
         found = document.find(object, found)) {
        if (!found.charFormat().stringProperty(QTextFormat::ImageAltText).isEmpty()) {
            pictures.push_back(found);
        }
    }
    return pictures;
}

} // namespace

TopicPageAccessible::TopicPageAccessible(TopicView& view)
    : QAccessibleWidget(view.viewport()), m_view(view) {}

TopicPageAccessible::~TopicPageAccessible() {
    dropPictures();
}

void TopicPageAccessible::install() {
    [[maybe_unused]] static const bool isInstalled = [] {
        QAccessible::installFactory(makeInterface);
        return true;
    }();
}

const std::vector<QAccessible::Id>& TopicPageAccessible::pictures() const {
    if (m_document != m_view.document()) {
        dropPictures();
        m_document = m_view.document();
        for (const QTextCursor& picture : picturesIn(*m_document)) {
            m_pictures.push_back(
                QAccessible::registerAccessibleInterface(new PictureAccessible(m_view, picture)));
        }
    }
    return m_pictures;
}

void TopicPageAccessible::dropPictures() const {
    for (const QAccessible::Id picture : m_pictures) {
        QAccessible::deleteAccessibleInterface(picture);
    }
    m_pictures.clear();
}

int TopicPageAccessible::childCount() const {
    return static_cast<int>(pictures().size());
}

QAccessibleInterface* TopicPageAccessible::child(int index) const {
    return index >= 0 && index < childCount()
               ? QAccessible::accessibleInterface(m_pictures[static_cast<std::size_t>(index)])
               : nullptr;
}

QAccessibleInterface* TopicPageAccessible::childAt(int x, int y) const {
    for (const QAccessible::Id picture : pictures()) {
        QAccessibleInterface* const candidate = QAccessible::accessibleInterface(picture);
        if (candidate->rect().contains(x, y)) {
            return candidate;
        }
    }
    return nullptr;
}

int TopicPageAccessible::indexOfChild(const QAccessibleInterface* child) const {
    const auto& all = pictures();
    const auto found = std::ranges::find(all, child, &QAccessible::accessibleInterface);
    return found == all.end() ? -1 : static_cast<int>(found - all.begin());
}

} // namespace quorvantel::help
