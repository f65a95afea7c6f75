// The reactions that all attributes share: what leaves at once, what is owed, and how it is paid.
#pragma once

#include "host/zol/attrlog/scalar_form.h"
#include "host/zol/expect.h"

namespace Zol::NboAttrLog {

// The base of the stream adapters whose attributes are told by rows. An adapter's class overrides
// the operations of the stream with calls of those below, which take the class's rows.
class ZOL_EXPORT EntityAdapter : public Entity::ZolNboAttrLogSa {
 public:
  ~EntityAdapter() override;

  // Takes in one message of a text's run; `set` assigns the text once it is complete.
  void textArrived(Inbound& message, void (*set)(Entity&, String8), void (*react)(EntityAdapter&));

 protected:
  using Entity::ZolNboAttrLogSa::ZolNboAttrLogSa;

  // Whose bits clear themselves on every way out of a reaction.
  class ApplyingEnd {
   public:
    explicit ApplyingEnd(EntityAdapter& adapter) : adapter_(adapter) {}
    ~ApplyingEnd() { adapter_.flagsIs(flagApplying, false); }
    ApplyingEnd(ApplyingEnd const&) = delete;
    ApplyingEnd& operator=(ApplyingEnd const&) = delete;

   private:
    EntityAdapter& adapter_;
  };

  // The operations of the stream over the rows of a class.
  AttributeId flowOutFrom(LogLevel const& level, AttributeId id);
  void freeState(LogLevel const& level, FlowOut& flow);
  void messageIs(LogLevel const& level, AttributeId id, DeserializationOptions options,
                 unsigned int size, Ptr<In> const& in);
  void notificationIs(LogLevel const& level, AttributeId id, void* key);

  // The reaction to a change of a scalar: `write( out )` writes the message, now or never; when it
  // may not go now it is owed.
  template <class Write>
  void scalarChanged(LogRow const& row, Write&& write) {
    if (has(flagQuiet) || (!has(flagApplying) && handlingFlowInFor(row.id))) return;
    ApplyingEnd const end(*this);
    if (isSilent() || has(flagApplying)) return;
    Ptr<Out> const out = nboAttrLogOut();
    if (!out) return;
    requireWritable(row.id, row.attr);
    if (mayLeave(row, *out)) write(out);
  }

  template <class T, class Model, auto get>
  void scalarOf(LogRow const& row) {
    scalarChanged(row, [&](Ptr<Out> const& out) {
      writeScalar<T>(*this, out, row.id, (static_cast<Model const&>(*entity()).*get)());
    });
  }

  // Announces the entity as one without a parent here; `write` writes the constructor parameters.
  template <class Write>
  void orphanIs(Write&& write) {
    beginOrphan();
    write(nboAttrLogOut());
    endOrphan();
  }

  // The reaction to a change of a text, and its part of a flow-out. `current` reads the text. True
  // when all of it has left, or nothing was to send.
  bool textChanged(LogRow const& row, String8 (*current)(Entity const&));

  [[nodiscard]] bool isSilent() const noexcept {
    return has(flagStale | flagMuted) || !has(flagStreaming);
  }
  // Throws through `doThrowReadOnly` when outbound changes are refused.
  void requireWritable(AttributeId id, ZolAttr const* (*attr)(AttributeId)) const;
  // Whether a message may leave now without a look at what is owed; makes a flow where it may not.
  [[nodiscard]] bool mayLeaveDirectly(AttributeId id, Out const& out);
  void attributeOwed(LogRow const& row);

 private:
  // The change of the entity at which something was owed last.
  std::uint32_t owedAt_ = 0;

  void beginOrphan();
  void endOrphan();
  [[nodiscard]] bool mayLeave(LogRow const& row, Out const& out);
};

}  // namespace Zol::NboAttrLog
