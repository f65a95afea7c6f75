// The way of a library's types into the registry: the reactor that libraries report to while they
// load, and the target that hears what they report.
#pragma once

#include "host/zol/registry/zol_type.h"

namespace Zol {

// Hears every report, in order. A program that wants to see the registration of a library gives the
// reactor a target of its own before it loads the library.
class ZOL_EXPORT IntrospectionTarget : public PtrInterface {
 public:
  ~IntrospectionTarget() override;

  // False: libraries that load now register no attributes.
  [[nodiscard]] bool enabled() const noexcept { return enabled_; }
  // Counts for what loads from now on; what has loaded stays as it is.
  void enabledIs(bool value) noexcept { enabled_ = value; }

  // A namespace has been opened.
  virtual void handleNameSpace(String8 const& name) = 0;
  // `base` is null for values and enumerations.
  virtual void handleType(ZolType* type, ZolType* base) = 0;
  // An attribute that has been entered into the type that is open.
  virtual void handleAttr(ZolAttr const& attr) = 0;
  // The attributes of the open type are complete.
  virtual void handleAttrContextExit() = 0;
  // The type or namespace that was opened last is closed.
  virtual void handleScopeExit() = 0;
  // An attribute whose value its holder does not make; it has been entered into its type.
  virtual void defNoninstantiatingAttr(ZolAttr const& attr) = 0;

 private:
  bool enabled_ = true;
};

// The process's one reactor. It hands each report on to the target, if there is one.
//
//   auto reactor = Zol::IntrospectionReactor::global();
//   reactor->target()->enabledIs( false );   // nothing that loads from now on is registered
class ZOL_EXPORT IntrospectionReactor final : public PtrInterface {
 public:
  // The target that is there at the start is a `RecordingTarget`, enabled.
  [[nodiscard]] static Ptr<IntrospectionReactor> global();

  // The target, or null.
  [[nodiscard]] Ptr<IntrospectionTarget> const& target() const noexcept { return target_; }
  // Null: nothing that loads from now on is registered.
  void targetIs(Ptr<IntrospectionTarget> target) { target_ = std::move(target); }

  // Opens a namespace; it is closed by `handleScopeExit`.
  void handleNameSpace(String8 const& name);
  // Opens a type; it is closed by `handleScopeExit`.
  void handleType(ZolType* type, ZolType* base);
  // Enters an attribute into the open type.
  void handleAttr(Ptr<ZolAttr> const& attr);
  // Says that the attributes of the open type are complete.
  void handleAttrContextExit();
  // Closes what was opened last.
  void handleScopeExit();
  // Makes an attribute and enters it into `type`. `keyType` is null for an attribute without a key.
  Ptr<ZolAttr> defNoninstantiatingAttr(ZolType* type, Name const& name, ZolType* valueType,
                                       ZolType* keyType, AttrFlags flags,
                                       std::uint32_t introspection, AttributeId id);

 private:
  IntrospectionReactor();

  Ptr<IntrospectionTarget> target_;
};

}  // namespace Zol
