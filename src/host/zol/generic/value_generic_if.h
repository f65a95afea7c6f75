// The generic objects and type objects of values. A value type gives its text by `valueToStrep` and
// reads it by `strepToValue`.
#pragma once

#include "host/zol/generic/generic_if.h"
#include "host/zol/registry/model_type.h"
#include "host/zol/value_reading.h"
#include "host/zol/value_text.h"

namespace Zol {

// Holds a copy of a value, so that neither it nor the entity from which it came sees the other's
// changes. A value does not change by itself: nobody is told of anything.
template <class T>
class ValueGenericIf : public GenericIf {
 public:
  ValueGenericIf(T value, bool isConst) : GenericIf(isConst), value_(std::move(value)) {
    PtrInterface::NotifieeConst::isRegisteredNotifieeIs(true);
  }

  // Off: remembers that it was registered; on brings that back.
  void hasNotificationActiveIs(bool value) override { switchNotification(value); }
  [[nodiscard]] ZolType* type() const override { return typeOf<T>(); }
  [[nodiscard]] void* voidPtrIs(Ptr<ZolType const> const& wanted) const override {
    if (wanted != this->type()) throwTypeException(this->type()->name());
    return const_cast<T*>(&value_);
  }
  [[nodiscard]] String8 strRep() const override { return valueToStrep(value_); }
  [[nodiscard]] Ptr<GenericIf> clone() override {
    return new ValueGenericIf(value_, this->isConst());
  }
  using GenericIf::clone;

  // Replaces the held value, also of a constant object.
  virtual void valIs(T const& value) { value_ = value; }

 protected:
  [[nodiscard]] T const& value() const noexcept { return value_; }

 private:
  T value_;
};

// An enumeration has one attribute, "value" with the id 1, which is the enumeration itself again.
// `Self` is the class of the generic object.
template <class E>
class EnumGenericIf : public ValueGenericIf<E> {
 public:
  using ValueGenericIf<E>::ValueGenericIf;
  static constexpr AttributeId kValueId = 1;

  [[nodiscard]] AttributeId attributeId(String8 name) const override {
    return name == String8("value") ? kValueId : GenericIf::attributeId(name);
  }
  // Any operation gives an equal, mutable object, and changes nothing.
  Ptr<GenericIf> attributeOp(GenericIf::AttributeOp const& op, Ptr<GenericIf const> const&,
                             Ptr<GenericIf> const&) override {
    if (op.attributeId != kValueId) GenericIf::throwUnknownAttrException(this->type()->name());
    return new EnumGenericIf(this->value(), false);
  }
  [[nodiscard]] Ptr<GenericIf> clone() override {
    return new EnumGenericIf(this->value(), this->isConst());
  }
  using GenericIf::clone;
};

// The type object of a value type whose generic objects are of the class `Generic`.
template <class T, class Generic>
class ValueType : public ZolType {
 public:
  explicit ValueType(Name name) : ZolType(std::move(name), nullptr, nullptr, {}) {}

  [[nodiscard]] Ptr<GenericIf> genericIf(void const* value, bool isConst) const override {
    return new Generic(value ? *static_cast<T const*>(value) : T(), isConst);
  }
  [[nodiscard]] Ptr<GenericIf> genericIf(String8 const& text, bool isConst) const override {
    return new Generic(strepToValue<T>(text), isConst);
  }
  using ZolType::genericIf;
};

// The type of a value that no schema describes, and of an enumeration.
template <class T, class Generic = ValueGenericIf<T>>
[[nodiscard]] ModelType makeValueType(std::string_view fullName) {
  return ModelType::value(fullName, sizeof(T),
                          new ValueType<T, Generic>(ModelType::bareName(fullName)));
}
template <class E>
[[nodiscard]] ModelType makeEnumerationType(std::string_view fullName,
                                            std::span<Enumerator const> rows) {
  return ModelType::enumeration(fullName, rows,
                                new ValueType<E, EnumGenericIf<E>>(ModelType::bareName(fullName)));
}

}  // namespace Zol
