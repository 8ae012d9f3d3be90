#pragma once

/// The message classes of the host's catalogue, one for each row of catalog/messages.def. A class
/// takes as many texts as its row says:
///
///     vxErrMsgId(component_VORTIL::catalog_datatypes::key_InvalidEnumValue(text, "LineStyle"));

#include <messages/BaseMsgID.h>

#include <concepts>
#include <string>
#include <utility>

#define VGHOST_MESSAGE(Space, Name, Arity, Identifier, English)                                  \
  namespace Space {                                                                              \
  class Name final : public resource_core::BaseMsgID {                                           \
   public:                                                                                       \
    static constexpr resource_core::MessageDefinition kDefinition{#Space "::" #Name, Identifier, \
                                                                  English, Arity};               \
    static_assert(resource_core::isIdentifierOf(Identifier, #Space, #Name),                      \
                  "the identifier is the class's path: see isIdentifierOf");                     \
    template <std::convertible_to<std::string>... Texts>                                         \
    requires(sizeof...(Texts) == Arity) explicit Name(Texts&&... texts)                          \
        : BaseMsgID(kDefinition, {std::string(std::forward<Texts>(texts))...}) {}                \
  };                                                                                             \
  }
#include <catalog/messages.def>
#undef VGHOST_MESSAGE
