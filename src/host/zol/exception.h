// The failures of the runtime. Each carries exactly the text that the thrower gave.
#pragma once

#include <cstdint>
#include <exception>

#include "host/zol/export.h"
#include "host/zol/text.h"

namespace Zol {

// Base of all failures of this library. `what()` is the thrower's text, nothing before or behind
// it.
class ZOL_EXPORT Exception : public std::exception {
 public:
  // Ids that some failures carry beside their text; this library only ever makes empty ones.
  class IdBitArray {};

  // With the text that `what()` gives.
  explicit Exception(String8 text) : text_(std::move(text)) {}
  Exception(Exception const&) = default;
  Exception& operator=(Exception const&) = default;
  ~Exception() override;
  // The text, valid as long as the exception.
  [[nodiscard]] char const* what() const noexcept override { return text_.view().data(); }

 private:
  String8 text_;
};

// A value, a text or a pointer that is not allowed.
class ZOL_EXPORT RangeException : public Exception {
 public:
  // With the text that `what()` gives.
  explicit RangeException(String8 text, IdBitArray = {}) : Exception(std::move(text)) {}
  ~RangeException() override;
};

// A member exists under the name, with other constructor parameters.
class ZOL_EXPORT NameInUseException : public Exception {
 public:
  using Exception::Exception;
  ~NameInUseException() override;
};

// A rule of the runtime was broken, by the caller or by the runtime itself.
class ZOL_EXPORT InternalException : public Exception {
 public:
  using Exception::Exception;
  ~InternalException() override;
};

// The log could not begin a message; the writer begins the message anew.
class ZOL_EXPORT AttrLogRecordException : public Exception {
 public:
  using Exception::Exception;
  ~AttrLogRecordException() override;
};

// An entity has no id on the log yet.
class ZOL_EXPORT EntityIdUnavailableException : public Exception {
 public:
  using Exception::Exception;
  ~EntityIdUnavailableException() override;
};

// A reference in a message does not fit: unknown, or of another type.
class ZOL_EXPORT AttrLogEntityException : public Exception {
 public:
  // With the text that `what()` gives.
  explicit AttrLogEntityException(String8 text, IdBitArray = {}) : Exception(std::move(text)) {}
  ~AttrLogEntityException() override;
};

// The failures of the by-name interface. Where nothing else is said, the text is the bare name of
// the attribute or type that was refused.

// A mutation by way of a constant generic object. The text is "attempting to modify a const
// instance".
class ZOL_EXPORT ConstException : public Exception {
 public:
  using Exception::Exception;
  ~ConstException() override;
};

// An index was given where the attribute takes none.
class ZOL_EXPORT BadIndexAttrException : public Exception {
 public:
  using Exception::Exception;
  ~BadIndexAttrException() override;
};

// A value or an index is missing, or of another type than it must be.
class ZOL_EXPORT TypeException : public Exception {
 public:
  using Exception::Exception;
  ~TypeException() override;
};

// The attribute does not have the operation.
class ZOL_EXPORT OpNotSupportedException : public Exception {
 public:
  // With the text that `what()` gives, and the id that `op()` gives.
  OpNotSupportedException(String8 text, std::int32_t op) : Exception(std::move(text)), op_(op) {}
  ~OpNotSupportedException() override;
  // The id of the operation.
  [[nodiscard]] std::int32_t op() const noexcept { return op_; }

 private:
  std::int32_t op_;
};

// A list has more arguments than are wanted.
class ZOL_EXPORT UnknownArgException : public Exception {
 public:
  using Exception::Exception;
  ~UnknownArgException() override;
};

// The type has no such attribute. Where a name was looked up, the text is that name.
class ZOL_EXPORT UnknownAttrException : public Exception {
 public:
  using Exception::Exception;
  ~UnknownAttrException() override;
};

// Throws the exception of that name with this text.
[[noreturn]] ZOL_EXPORT void throwRangeException(String8 const& text);
[[noreturn]] ZOL_EXPORT void throwNameInUseException(String8 const& text);
[[noreturn]] ZOL_EXPORT void throwInternalException(String8 const& text);

}  // namespace Zol
