#include "entities/entity_rules.h"

namespace Hardware::Ucd9012 {

void throwReinstantiated(Zol::Entity const& member, char const* parameter,
                         Zol::String8 const& given, Zol::String8 const& current) {
  Zol::throwNameInUseException(
      Zol::String8("Reinstantiating the entity with name ") + Zol::valueToStrep(member.name()) +
      " where constructor parameter attribute _" + parameter + " has a different value of " +
      given + " than the current value of " + current + " not allowed");
}

}  // namespace Hardware::Ucd9012
