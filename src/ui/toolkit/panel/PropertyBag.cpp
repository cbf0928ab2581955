#include "ui/toolkit/panel/PropertyBag.h"

namespace tavel {

PropertyValue MemoryPropertyBag::ReadProperty(std::string_view sKey,
                                              const PropertyValue& defaultValue) const {
    const auto found = m_values.find(sKey);
    return found == m_values.end() ? defaultValue : found->second;
}

void MemoryPropertyBag::WriteProperty(std::string_view sKey, const PropertyValue& value,
                                      const std::optional<PropertyValue>& defaultValue) {
    if (value != defaultValue) m_values.insert_or_assign(std::string(sKey), value);
}

}  // namespace tavel
