// The generic objects of the value records and the enumerations.
#pragma once

#include "host/zol/generic/argument_list.h"
#include "host/zol/generic/value_generic_if.h"
#include "schema/attribute_rows.h"
#include "values/external_voltage_rail.h"
#include "values/page_fault_cause.h"
#include "values/psoc_cause.h"
#include "values/record_form.h"
#include "values/ucd_cause.h"

namespace Hardware::Ucd9012 {

// The attributes of a record can be read one by one. None is ever written: a record is replaced as
// a whole.
template <class R>
class RecordGenericIf : public Zol::ValueGenericIf<R> {
 public:
  using Zol::ValueGenericIf<R>::ValueGenericIf;
  using Zol::GenericIf::clone;

  [[nodiscard]] Zol::AttributeId attributeId(Zol::String8 name) const override {
    Zol::Ptr<Zol::ZolAttr> const attr = this->type()->attr(Zol::Name(name));
    return attr ? attr->attrId() : Zol::GenericIf::attributeId(std::move(name));
  }
  Zol::Ptr<Zol::GenericIf> attributeOp(Zol::GenericIf::AttributeOp const& op,
                                       Zol::Ptr<Zol::GenericIf const> const& index,
                                       Zol::Ptr<Zol::GenericIf> const& value) override {
    this->requireMutable(op.opId);
    auto const& rows = kAttributeRows<R>;
    auto const row = std::ranges::find(rows, op.attributeId, &AttributeRow::id);
    if (row == rows.end()) return Zol::GenericIf::attributeOp(op, index, value);
    if (index) Zol::GenericIf::throwBadIndexAttrException(row->name);
    if (op.opId != Zol::GenericIf::attrOpRead) {
      Zol::GenericIf::throwOpNotSupportedException(row->name, op.opId, false);
    }
    Zol::Ptr<Zol::GenericIf> result;
    RecordForm::eachField(this->value(), [&](std::string_view name, auto const& field) {
      if (name == row->name) result = Zol::wrapped(field, this->isConst());
    });
    return result;
  }
  [[nodiscard]] Zol::Ptr<Zol::GenericIf> clone() override {
    return new typename R::GenericIf_(this->value(), this->isConst());
  }

  [[nodiscard]] static Zol::Ptr<typename R::GenericIf_> GenericIf_Is(R const& value, bool isConst) {
    return new typename R::GenericIf_(value, isConst);
  }
  // A mutable object of the record with the arguments of the list; of the default record for an
  // empty list. Throws as `ZolType::genericIf( list )` says.
  [[nodiscard]] static Zol::Ptr<Zol::GenericIf> genericIfListConstructor(
      Zol::GenericIf const* list) {
    Zol::ArgumentList arguments(list);
    R record;
    if (arguments.atEnd()) return GenericIf_Is(record, false);
    RecordForm::eachField(
        record, [&]<class T>(std::string_view name, T& field) { field = arguments.next<T>(name); });
    arguments.requireEnd(Zol::ModelType::bareName(kFullName<R>));
    return GenericIf_Is(record, false);
  }
};

#include "generic/stamp_value_classes.h"
#include "schema/types.def"

}  // namespace Hardware::Ucd9012
