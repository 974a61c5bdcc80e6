#include "e2e/AccessibleObject.h"

namespace quorvantel::testing {
namespace {

template <typename Object>
using GObjectPointer = std::unique_ptr<Object, decltype(&g_object_unref)>;

QString takeString(char* text) {
    const std::unique_ptr<char, decltype(&g_free)> owner(text, &g_free);
    return QString::fromUtf8(text);
}

GObjectPointer<AtspiAction> actionOf(AtspiAccessible* object) {
    return {atspi_accessible_get_action_iface(object), &g_object_unref};
}

} // namespace

QString AccessibleObject::role() const {
    return takeString(atspi_accessible_get_role_name(m_object.get(), nullptr));
}

QString AccessibleObject::name() const {
    return takeString(atspi_accessible_get_name(m_object.get(), nullptr));
}

QString AccessibleObject::description() const {
    return takeString(atspi_accessible_get_description(m_object.get(), nullptr));
}

QStringList AccessibleObject::states() const {
    const GObjectPointer<AtspiStateSet> set(atspi_accessible_get_state_set(m_object.get()),
                                            &g_object_unref);
    const std::unique_ptr<GArray, decltype(&g_array_unref)> values(
        atspi_state_set_get_states(set.get()), &g_array_unref);
    const std::unique_ptr<GEnumClass, decltype(&g_type_class_unref)> names(
        static_cast<GEnumClass*>(g_type_class_ref(ATSPI_TYPE_STATE_TYPE)), &g_type_class_unref);
    QStringList states;
    for (guint index = 0; index < values->len; ++index) {
        const AtspiStateType value = g_array_index(values.get(), AtspiStateType, index);
        states << QString::fromUtf8(g_enum_get_value(names.get(), value)->value_nick);
    }
    return states;
}

int AccessibleObject::childCount() const {
    return atspi_accessible_get_child_count(m_object.get(), nullptr);
}

std::optional<AccessibleObject> AccessibleObject::child(int index) const {
    AtspiAccessible* const child =
        atspi_accessible_get_child_at_index(m_object.get(), index, nullptr);
    return child != nullptr ? std::optional(AccessibleObject(child)) : std::nullopt;
}

int AccessibleObject::indexInParent() const {
    return atspi_accessible_get_index_in_parent(m_object.get(), nullptr);
}

QStringList AccessibleObject::actions() const {
    const auto action = actionOf(m_object.get());
    QStringList names;
    for (int index = 0; action && index < atspi_action_get_n_actions(action.get(), nullptr);
         ++index) {
        names << takeString(atspi_action_get_action_name(action.get(), index, nullptr));
    }
    return names;
}

bool AccessibleObject::doAction() const {
    const auto action = actionOf(m_object.get());
    return action && atspi_action_do_action(action.get(), 0, nullptr) != 0;
}

} // namespace quorvantel::testing
