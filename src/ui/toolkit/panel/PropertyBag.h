#pragma once

#include "platform/Numbers.h"
#include "ui/toolkit/SystemColors.h"
#include "ui/toolkit/panel/PanelPicture.h"

#include <QFont>
#include <QString>
#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <variant>

namespace tavel {

// What a property store keeps under a key.
using PropertyValue = std::variant<bool, Long, OleColor, QString, QFont, PanelPicture>;

// A control's design, kept by its host: values under keys, in no order.
class PropertyBag {
  public:
    virtual ~PropertyBag() = default;

    // The value under the key, or the default when there is none.
    virtual PropertyValue ReadProperty(std::string_view sKey,
                                       const PropertyValue& defaultValue) const = 0;

    // Keeps the value under the key, over what is there. A value that equals the default is not
    // written at all, so that a design takes new defaults along; without a default it always is.
    // A design is therefore saved into an empty store.
    virtual void WriteProperty(std::string_view sKey, const PropertyValue& value,
                               const std::optional<PropertyValue>& defaultValue = {}) = 0;
};

// A store in memory, which a designer's file can be filled from and read into.
class MemoryPropertyBag : public PropertyBag {
  public:
    PropertyValue ReadProperty(std::string_view sKey,
                               const PropertyValue& defaultValue) const override;
    void WriteProperty(std::string_view sKey, const PropertyValue& value,
                       const std::optional<PropertyValue>& defaultValue = {}) override;

    const std::map<std::string, PropertyValue, std::less<>>& Values() const { return m_values; }

  private:
    std::map<std::string, PropertyValue, std::less<>> m_values;
};

}  // namespace tavel
