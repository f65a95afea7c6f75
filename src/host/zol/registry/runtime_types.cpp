// The type objects of the runtime's own classes.
#include "host/zol/registry/model_type.h"

namespace Zol {

namespace {

constexpr AttributeId kNameId = 130;
constexpr AttributeId kParentId = 131;
constexpr AttributeId kParentAttrIdId = 132;
constexpr AttributeId kFullNameId = 133;
constexpr AttributeId kAdapterForMsgChannelId = 153;

// An attribute that its owner computes at each read.
constexpr AttrClass kComputed{{AttrFlags::kLowAlways | AttrFlags::kByName | AttrFlags::kVirtual |
                                   AttrFlags::kNotKey | AttrFlags::kHoldsValue,
                               AttrFlags::kHighAlways},
                              kIntrospectOrdinary};

}  // namespace

ZolType* PtrInterface::_fwkType() {
  static ZolType* const type = [] {
    ModelType model = ModelType::value("Zol::PtrInterface", sizeof(PtrInterface));
    model.type()->isValueIs(false);
    return model.type();
  }();
  return type;
}

ZolType* PtrInterface::fwkType() const { return _fwkType(); }

ZolType* Entity::_fwkType() {
  static ZolType* const type = [] {
    ModelType model = ModelType::entity("Zol::Entity", sizeof(Entity), PtrInterface::_fwkType());
    model.arg("name", "Zol::Name")
        .plain<Name>("name", kNameId, FlagClass::kP)
        .attr("parent", kParentId, model.type(), FlagClass::kRV)
        .plain<unsigned int>("parentAttrId", kParentAttrIdId, FlagClass::kSV)
        .plain<String8>("fullName", kFullNameId, kComputed)
        .attr("zolNboAttrLogSaForMsgChannel", kAdapterForMsgChannelId, model.type(), FlagClass::kL);
    return model.type();
  }();
  return type;
}

ZolType* Entity::fwkType() const { return _fwkType(); }

ZolType* ZolType::_fwkType() {
  static ZolType* const type =
      ModelType::entity("Zol::ZolType", sizeof(ZolType), Entity::_fwkType()).type();
  return type;
}

ZolType* ZolAttr::_fwkType() {
  static ZolType* const type =
      ModelType::entity("Zol::ZolAttr", sizeof(ZolAttr), Entity::_fwkType()).type();
  return type;
}

}  // namespace Zol
