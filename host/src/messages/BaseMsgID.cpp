#include <messages/BaseMsgID.h>

namespace resource_core {

BaseMsgID::BaseMsgID(const MessageDefinition& definition, std::vector<std::string> arguments)
    : definition_(&definition),
      arguments_(std::move(arguments)) {}

BaseMsgID::~BaseMsgID() = default;

}  // namespace resource_core
